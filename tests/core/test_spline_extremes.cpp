#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double highest = std::numeric_limits<double>::max();

const char* const typeNames[] = {"linear", "bezier", "tcb", "stepped"};

PointInfo bezierKey(double time, double value, double slope)
{
    PointInfo key = makeKey(time, value, zk_spline::bezier);
    key.bezier = {slope, slope};
    return key;
}

bool isFiniteFrom(const SplineBase& spline, double from, double to)
{
    for (int i = 0; i <= 1000; ++i) {
        if (!std::isfinite(spline(from + (to - from) * i / 1000.0))) {
            return false;
        }
    }
    return true;
}

void setBoth(SplineBase& spline, SplineBase::nodeType behaviour)
{
    spline.setFirstNodeType(behaviour);
    spline.setLastNodeType(behaviour);
}

} // namespace

/// Keys at the end of what a double holds, slopes beyond it, and the slope in which a curve ends.
class TestSplineExtremes : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void valuesAtTheEndOfTheRange_data();
    void valuesAtTheEndOfTheRange();
    void slopesThatAreNoNumbers_data();
    void slopesThatAreNoNumbers();
    void tcbDataThatAreNoNumbers();
    void aStraightLineAcrossTheWholeRangeIsStraight();
    void hugeSlopesThatCancelLeaveTheCurveBetween();
    void anEndlessNeighbourLeavesAKeyAlone();
    void aSlopeWithoutEndCountsAsLevel();

    void followTangentGoesOnWithTheSlopeOfAnEasedEnd_data();
    void followTangentGoesOnWithTheSlopeOfAnEasedEnd();
    void followTangentOfASlopeWithoutEndStaysLevel();
    void followTangentOfALineSteeperThanAllNumbersGoesOn();
    void loopsWithOffsetOfARiseBeyondAllNumbersAreNumbers();
};

void TestSplineExtremes::valuesAtTheEndOfTheRange_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("size");
    for (int type = 0; type < 4; ++type) {
        for (const double size : {1e300, 1e308, highest}) {
            QTest::addRow("%s, %g", typeNames[type], size) << type << size;
        }
    }
}

void TestSplineExtremes::valuesAtTheEndOfTheRange()
{
    QFETCH(int, type);
    QFETCH(double, size);
    for (const int count : {2, 3, 4, 7}) {
        SplineBase spline;
        for (int i = 0; i < count; ++i) {
            PointInfo key = makeKey(i * 1.5, i % 2 == 0 ? size : -size,
                                    static_cast<zk_spline::interpolationType>(type));
            key.bezier = {size, -size};
            put(spline, key);
        }
        for (int i = 0; i < count; ++i) {
            QCOMPARE(spline(i * 1.5), i % 2 == 0 ? size : -size);
        }
        QVERIFY(isFiniteFrom(spline, 0.0, (count - 1) * 1.5));
    }
}

void TestSplineExtremes::slopesThatAreNoNumbers_data()
{
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("right");
    QTest::newRow("infinite") << infinity << infinity;
    QTest::newRow("minus infinite") << -infinity << -infinity;
    QTest::newRow("of both signs") << infinity << -infinity;
    QTest::newRow("not a number") << notANumber << notANumber;
    QTest::newRow("the highest number") << highest << -highest;
}

void TestSplineExtremes::slopesThatAreNoNumbers()
{
    QFETCH(double, left);
    QFETCH(double, right);
    for (const int count : {2, 3, 4, 7}) {
        SplineBase spline;
        for (int i = 0; i < count; ++i) {
            PointInfo key = makeKey(i * 3.0, i, zk_spline::bezier);
            key.bezier = {left, right};
            put(spline, key);
        }
        for (int i = 0; i < count; ++i) {
            QCOMPARE(spline(i * 3.0), double(i));
        }
        QVERIFY(isFiniteFrom(spline, 0.0, (count - 1) * 3.0));
    }
}

void TestSplineExtremes::tcbDataThatAreNoNumbers()
{
    for (const double bad : {infinity, -infinity, notANumber, 1e308}) {
        SplineBase spline;
        for (int i = 0; i < 6; ++i) {
            PointInfo key = makeKey(i, i * i, zk_spline::tcb);
            key.tcb = {bad, i % 2 == 0 ? bad : 0.0, bad, bad, bad};
            put(spline, key);
        }
        for (int i = 0; i < 6; ++i) {
            QCOMPARE(spline(i), double(i * i));
        }
        QVERIFY(isFiniteFrom(spline, 0.0, 5.0));
    }
}

void TestSplineExtremes::aStraightLineAcrossTheWholeRangeIsStraight()
{
    for (const auto type : {zk_spline::linear, zk_spline::tcb}) {
        SplineBase spline;
        put(spline, makeKey(0.0, -1.5e308, type));
        put(spline, makeKey(4.0, 1.5e308, type));
        QCOMPARE(spline(0.0), -1.5e308);
        QCOMPARE(spline(1.0), -0.75e308);
        QCOMPARE(spline(2.0) / 1e308, 0.0);
        QCOMPARE(spline(3.0), 0.75e308);
        QCOMPARE(spline(4.0), 1.5e308);
    }
}

void TestSplineExtremes::hugeSlopesThatCancelLeaveTheCurveBetween()
{
    // Of equal slopes at both ends nothing is left half-way.
    SplineBase spline;
    put(spline, bezierKey(0.0, 0.0, 1e308));
    put(spline, bezierKey(100.0, 1e300, 1e308));
    QCOMPARE(spline(50.0), 0.5e300);
    QVERIFY(spline(1.0) > 0.9e308);
    QVERIFY(isFiniteFrom(spline, 0.0, 100.0));
}

void TestSplineExtremes::anEndlessNeighbourLeavesAKeyAlone()
{
    for (const double neighbour : {infinity, -infinity, notANumber}) {
        for (int type = 0; type < 4; ++type) {
            const auto kind = static_cast<zk_spline::interpolationType>(type);
            SplineBase spline;
            put(spline, makeKey(0.0, neighbour, kind));
            put(spline, makeKey(1.0, 1.0, kind));
            put(spline, makeKey(2.0, 2.0, kind));
            put(spline, makeKey(3.0, neighbour, kind));
            QCOMPARE(spline(1.0), 1.0);
            QCOMPARE(spline(2.0), 2.0);
            QVERIFY(isFiniteFrom(spline, 1.0, 2.0));
        }
    }
}

void TestSplineExtremes::aSlopeWithoutEndCountsAsLevel()
{
    SplineBase endless;
    put(endless, bezierKey(0.0, 0.0, infinity));
    put(endless, bezierKey(2.0, 4.0, 3.0));
    SplineBase level;
    put(level, bezierKey(0.0, 0.0, 0.0));
    put(level, bezierKey(2.0, 4.0, 3.0));
    for (const double time : {0.0, 0.25, 1.0, 1.5, 2.0}) {
        QCOMPARE(endless(time), level(time));
    }
}

void TestSplineExtremes::followTangentGoesOnWithTheSlopeOfAnEasedEnd_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("easeFrom");
    QTest::addColumn<double>("easeTo");
    for (const int type : {0, 1, 2}) {
        for (const double from : {0.0, 0.25, 0.75, 1.0, -3.0, notANumber}) {
            for (const double to : {0.0, 0.25, 0.75, 1.0, 5.0}) {
                QTest::addRow("%s, ease from %g, ease to %g", typeNames[type], from, to)
                    << type << from << to;
            }
        }
    }
}

void TestSplineExtremes::followTangentGoesOnWithTheSlopeOfAnEasedEnd()
{
    QFETCH(int, type);
    QFETCH(double, easeFrom);
    QFETCH(double, easeTo);
    SplineBase spline;
    PointInfo key = makeKey(1.0, 2.0, static_cast<zk_spline::interpolationType>(type));
    key.bezier = {1.5, 1.5};
    key.tcb.easeFrom = easeFrom;
    key.tcb.easeTo = easeTo;
    put(spline, key);
    key.time = 3.0;
    key.value = 7.0;
    put(spline, key);
    setBoth(spline, SplineBase::followTangent);
    // The curve itself, close to its ends, and its continuation the same way off.
    const double step = 1e-6;
    const double slopeIn = (spline(1.0 + step) - 2.0) / step;
    const double slopeOut = (7.0 - spline(3.0 - step)) / step;
    QVERIFY(std::abs((2.0 - spline(0.0)) - slopeIn) < 1e-4);
    QVERIFY(std::abs((spline(4.0) - 7.0) - slopeOut) < 1e-4);
}

void TestSplineExtremes::followTangentOfASlopeWithoutEndStaysLevel()
{
    for (const double slope : {infinity, -infinity, notANumber}) {
        for (const int count : {1, 2, 3}) {
            SplineBase spline;
            for (int i = 0; i < count; ++i) {
                put(spline, bezierKey(i, 5.0, slope));
            }
            setBoth(spline, SplineBase::followTangent);
            QCOMPARE(spline(-2.0), 5.0);
            QCOMPARE(spline(9.0), 5.0);
        }
    }
}

void TestSplineExtremes::followTangentOfALineSteeperThanAllNumbersGoesOn()
{
    SplineBase spline;
    put(spline, makeKey(0.0, -1e308));
    put(spline, makeKey(1.0, 1e308));
    setBoth(spline, SplineBase::followTangent);
    QCOMPARE(spline(1.125), 1.25e308);
    QCOMPARE(spline(-0.125), -1.25e308);
    QCOMPARE(spline(9.0), infinity);
}

void TestSplineExtremes::loopsWithOffsetOfARiseBeyondAllNumbersAreNumbers()
{
    SplineBase spline;
    put(spline, makeKey(0.0, -1e308));
    put(spline, makeKey(1.0, 1e308));
    setBoth(spline, SplineBase::loopOffset);
    for (const double time : {-2.5, std::nextafter(0.0, -1.0), -1e-20, 1.0, 1.5, 2.0, 7.25}) {
        QVERIFY(!std::isnan(spline(time)));
    }
}

QTEST_APPLESS_MAIN(TestSplineExtremes)
#include "test_spline_extremes.moc"
