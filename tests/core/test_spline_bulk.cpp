#include "core/RandomCurves.h"
#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <cmath>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
using Times = std::vector<double>;

std::vector<double> valuesOf(const SplineBase& spline)
{
    std::vector<double> values;
    for (const PointInfo* key : spline.keys()) {
        values.push_back(key->value);
    }
    return values;
}

} // namespace

/// Many keys at once: added, and made of a curve's frames.
class TestSplineBulk : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void addedAtOnceIsAddedOneByOne();
    void addingNoneChangesNothing();
    void addedKeysAreKnownToTheSpline();
    void timesThatAreNoNumbersGoLast();

    void aBakedCurveHasItsValuesAtTheFrames();
    void framesFallWhereDivisionPutsThem_data();
    void framesFallWhereDivisionPutsThem();
    void bakingKeepsTheFields();
    void bakingBetweenNoTimesMakesNoKeys_data();
    void bakingBetweenNoTimesMakesNoKeys();
};

void TestSplineBulk::addedAtOnceIsAddedOneByOne()
{
    RandomCurves random(31, false);
    for (int round = 0; round < 500; ++round) {
        SplineBase atOnce;
        SplineBase oneByOne;
        double tag = 0.0;
        for (int block = 0; block < 3; ++block) {
            std::vector<PointInfo> points(random.below(40));
            for (PointInfo& point : points) {
                point = makeKey(random.below(20), tag, zk_spline::bezier);
                tag += 1.0;
            }
            for (const PointInfo& point : points) {
                put(oneByOne, point);
            }
            atOnce.addPoints(points);
        }
        QCOMPARE(timesOf(atOnce), timesOf(oneByOne));
        QCOMPARE(valuesOf(atOnce), valuesOf(oneByOne));
        QCOMPARE(atOnce[0]->type, zk_spline::bezier);
    }
}

void TestSplineBulk::addingNoneChangesNothing()
{
    SplineBase spline;
    spline.addPoint(1.0, 2.0);
    spline.setChanged(false);
    spline.addPoints({});
    spline.addPoints(nullptr, 0);
    QCOMPARE(spline.getControlPointsNumber(), 1U);
    QVERIFY(!spline.hasChanged());
}

void TestSplineBulk::addedKeysAreKnownToTheSpline()
{
    SplineBase spline;
    spline.setChanged(false);
    spline.addPoints({makeKey(3.0, 0.0), makeKey(1.0, 0.0), makeKey(2.0, 0.0)});
    QVERIFY(spline.hasChanged());
    for (unsigned key = 0; key < 3; ++key) {
        QCOMPARE(spline.findIndex(spline[key]), static_cast<int>(key));
        QVERIFY(spline.keySerial(spline[key]) != 0);
    }
    spline.setTime(spline[0], 9.0);
    QCOMPARE(timesOf(spline), Times({2.0, 3.0, 9.0}));
}

void TestSplineBulk::timesThatAreNoNumbersGoLast()
{
    SplineBase spline;
    spline.addPoint(0.0, 1.0);
    spline.addPoints({makeKey(notANumber, 2.0), makeKey(infinity, 3.0), makeKey(-infinity, 4.0),
                      makeKey(notANumber, 5.0), makeKey(1.0, 6.0)});
    QCOMPARE(valuesOf(spline), Times({4.0, 1.0, 6.0, 3.0, 2.0, 5.0}));
    for (unsigned key = 0; key < 6; ++key) {
        QCOMPARE(spline.findIndex(spline[key]), static_cast<int>(key));
    }
}

void TestSplineBulk::aBakedCurveHasItsValuesAtTheFrames()
{
    RandomCurves curves(32, false);
    for (int curve = 0; curve < 200; ++curve) {
        const auto spline = curves.next();
        const double first = curves.uniform(-20.0, 5.0);
        const double last = first + curves.uniform(0.0, 20.0);
        const double rate = curves.oneOf({24.0, 25.0, 10.0, 29.97, 3.0});
        const SplineBase baked = spline->bake(first, last, rate);
        QVERIFY(baked.getControlPointsNumber() > 0);
        QCOMPARE(baked.firstKey()->time, last > first ? first : last);
        QCOMPARE(baked.lastKey()->time, last);
        for (const PointInfo* key : baked.keys()) {
            QCOMPARE(key->value, (*spline)(key->time));
            QCOMPARE(key->type, zk_spline::linear);
        }
    }
}

void TestSplineBulk::framesFallWhereDivisionPutsThem_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("last");
    QTest::addColumn<double>("rate");
    QTest::addColumn<unsigned>("keys");
    QTest::newRow("whole frames") << 0.0 << 2.0 << 25.0 << 51U;
    QTest::newRow("a last frame that is cut short") << 0.0 << 1.0 << 2.5 << 4U;
    QTest::newRow("an end that rounding puts behind its frame") << 0.0 << 0.1 + 0.2 << 10.0 << 4U;
    QTest::newRow("a tenth from a third") << 1.0 / 3.0 << 1.0 / 3.0 + 0.7 << 10.0 << 8U;
    QTest::newRow("one moment") << 4.0 << 4.0 << 25.0 << 1U;
    QTest::newRow("the moment 0") << 0.0 << 0.0 << 25.0 << 1U;
    QTest::newRow("less than a frame") << 0.0 << 0.01 << 25.0 << 2U;
}

void TestSplineBulk::framesFallWhereDivisionPutsThem()
{
    QFETCH(double, first);
    QFETCH(double, last);
    QFETCH(double, rate);
    QFETCH(unsigned, keys);
    const SplineBase baked = SplineBase().bake(first, last, rate);
    QCOMPARE(baked.getControlPointsNumber(), keys);
    for (unsigned key = 0; key + 1 < keys; ++key) {
        QCOMPARE(baked[key]->time, first + key / rate);
    }
    QCOMPARE(baked.lastKey()->time, last);
}

void TestSplineBulk::bakingKeepsTheFields()
{
    SplineBase spline;
    spline.addPoint(0.0, 1.0);
    spline.setFirstNodeType(SplineBase::zero);
    spline.setLastNodeType(SplineBase::loop);
    spline.setDefaultValue(7.0);
    spline.setAddFunc(true);
    const SplineBase baked = spline.bake(0.0, 1.0, 1.0);
    QCOMPARE(baked.firstNodeType(), SplineBase::zero);
    QCOMPARE(baked.lastNodeType(), SplineBase::loop);
    QCOMPARE(baked.getDefaultValue(), 7.0);
    QVERIFY(baked.isAddFunc());
}

void TestSplineBulk::bakingBetweenNoTimesMakesNoKeys_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("last");
    QTest::addColumn<double>("rate");
    QTest::newRow("the wrong way round") << 1.0 << 0.0 << 25.0;
    QTest::newRow("no rate") << 0.0 << 1.0 << 0.0;
    QTest::newRow("a negative rate") << 0.0 << 1.0 << -1.0;
    QTest::newRow("a rate that is no number") << 0.0 << 1.0 << notANumber;
    QTest::newRow("an endless rate") << 0.0 << 1.0 << infinity;
    QTest::newRow("an endless rate at one moment") << 0.0 << 0.0 << infinity;
    QTest::newRow("a start that is no number") << notANumber << 1.0 << 25.0;
    QTest::newRow("an end that is no number") << 0.0 << notANumber << 25.0;
    QTest::newRow("an endless end") << 0.0 << infinity << 25.0;
    QTest::newRow("an endless start") << -infinity << 0.0 << 25.0;
    QTest::newRow("a million years") << 0.0 << 3e13 << 25.0;
}

void TestSplineBulk::bakingBetweenNoTimesMakesNoKeys()
{
    QFETCH(double, first);
    QFETCH(double, last);
    QFETCH(double, rate);
    QCOMPARE(SplineBase().bake(first, last, rate).getControlPointsNumber(), 0U);
}

QTEST_APPLESS_MAIN(TestSplineBulk)
#include "test_spline_bulk.moc"
