#include "core/RandomCurves.h"
#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// Times between the keys, at them and beside them.
std::vector<double> timesWithin(const SplineBase& spline)
{
    std::vector<double> times;
    for (unsigned key = 0; key + 1 < spline.getControlPointsNumber(); ++key) {
        const double start = spline[key]->time;
        const double run = spline[key + 1]->time - start;
        for (int i = 0; i < 40; ++i) {
            times.push_back(start + run * i / 40.0);
        }
        times.push_back(std::nextafter(spline[key + 1]->time, -infinity));
    }
    times.push_back(spline.lastKey()->time);
    return times;
}

double greatestError(const SplineBase& spline, const SplineBase& other,
                     const std::vector<double>& times)
{
    double greatest = 0.0;
    for (const double time : times) {
        greatest = std::max(greatest, std::abs(spline(time) - other(time)));
    }
    return greatest;
}

double sizeOf(const SplineBase& spline)
{
    const ValueBounds bounds = spline.bounds(spline.firstKey()->time, spline.lastKey()->time);
    return std::max(std::abs(bounds.lowest), std::abs(bounds.highest));
}

SplineBase bakedSine(double seconds)
{
    std::vector<PointInfo> points;
    for (double frame = 0.0; frame <= seconds * 25.0; frame += 1.0) {
        points.push_back(makeKey(frame / 25.0, std::sin(frame / 25.0)));
    }
    SplineBase spline;
    spline.addPoints(points);
    return spline;
}

} // namespace

/// Curves of fewer keys that stay near.
class TestSplineReduction : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void reducedCurvesStayWithinTheTolerance();
    void bakedCurvesFindBackToFewKeys_data();
    void bakedCurvesFindBackToFewKeys();
    void whatIsStraightNeedsTwoKeys();
    void stepsStayAndSmallOnesGo();
    void jumpsStay();
    void aLineIntoAStepStaysStraight();
    void aTangentThatIsFollowedStays_data();
    void aTangentThatIsFollowedStays();
    void fieldsAndEndsStay();
    void whatCannotBeWorkedOnComesBackAsItIs_data();
    void whatCannotBeWorkedOnComesBackAsItIs();
    void oddTolerancesCountAsNone_data();
    void oddTolerancesCountAsNone();
};

void TestSplineReduction::reducedCurvesStayWithinTheTolerance()
{
    RandomCurves curves(51, false);
    unsigned former = 0;
    unsigned left = 0;
    for (int curve = 0; curve < 3000; ++curve) {
        // Two curves in one: more keys, and more of each sort.
        const auto spline = curves.next();
        const auto more = curves.next();
        if (spline->getControlPointsNumber() == 0 || more->getControlPointsNumber() == 0) {
            continue;
        }
        spline->combine(*more, spline->getLast()->time - more->getFirst()->time);
        const double tolerance = curves.oneOf({0.0, 0.01, 0.3, 2.0, 10.0});
        const SplineBase reduced = spline->reduce(tolerance);
        former += spline->getControlPointsNumber();
        left += reduced.getControlPointsNumber();
        QVERIFY(reduced.getControlPointsNumber() <= spline->getControlPointsNumber());
        const double noise = 1e-9 * std::max(1.0, sizeOf(*spline));
        const double error = greatestError(*spline, reduced, timesWithin(*spline));
        QVERIFY2(error <= tolerance + noise,
                 qPrintable(QString("curve %1: %2 for %3").arg(curve).arg(error).arg(tolerance)));
        for (const double time : curves.timesFor(*spline)) {
            const bool isOutside =
                !(time >= spline->getFirst()->time) || !(time <= spline->getLast()->time);
            const double was = (*spline)(time);
            const double reach = 1.0 + std::abs(time) + std::abs(was);
            if (isOutside && std::isfinite(was) && std::abs(time) < 1e9) {
                // A moment beside a jump may fall on either side, a round later.
                const double is = reduced(time);
                const double gap = 1e-6 * (1.0 + std::abs(time));
                const double difference = std::abs(was - is);
                const double beside = std::abs((*spline)(time + gap) - is);
                const double other = std::abs((*spline)(time - gap) - is);
                QVERIFY2(std::min({difference, beside, other}) <= tolerance + noise * reach * 10.0,
                         qPrintable(QString("curve %1 at %2: %3 for %4")
                                        .arg(curve)
                                        .arg(time)
                                        .arg(is)
                                        .arg(was)));
            }
        }
    }
    QVERIFY(left < former);
}

void TestSplineReduction::bakedCurvesFindBackToFewKeys_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("tolerance");
    QTest::addColumn<unsigned>("mostKeys");
    QTest::newRow("a sine, finely") << 6.28 << 1e-3 << 6U;
    QTest::newRow("a sine, coarsely") << 6.28 << 0.02 << 4U;
    QTest::newRow("a sine ten times over") << 62.8 << 1e-3 << 48U;
    QTest::newRow("a sine that may be anything") << 62.8 << 2.2 << 2U;
}

void TestSplineReduction::bakedCurvesFindBackToFewKeys()
{
    QFETCH(double, seconds);
    QFETCH(double, tolerance);
    QFETCH(unsigned, mostKeys);
    const SplineBase spline = bakedSine(seconds);
    const SplineBase reduced = spline.reduce(tolerance);
    QVERIFY2(reduced.getControlPointsNumber() <= mostKeys,
             qPrintable(QString::number(reduced.getControlPointsNumber())));
    QVERIFY(greatestError(spline, reduced, timesWithin(spline)) <= tolerance);
}

void TestSplineReduction::whatIsStraightNeedsTwoKeys()
{
    SplineBase spline;
    for (int i = 0; i < 1000; ++i) {
        put(spline, makeKey(i * 0.25, i * 2.0, zk_spline::tcb));
    }
    const SplineBase reduced = spline.reduce(1e-6);
    QCOMPARE(reduced.getControlPointsNumber(), 2U);
    QCOMPARE(reduced.firstKey()->time, 0.0);
    QCOMPARE(reduced.lastKey()->value, 1998.0);
}

void TestSplineReduction::stepsStayAndSmallOnesGo()
{
    SplineBase spline;
    for (const double time : {0.0, 1.0, 2.0, 3.0, 4.0}) {
        put(spline, makeKey(time, time < 3.0 ? time * 0.01 : 5.0, zk_spline::stepped));
    }
    const SplineBase reduced = spline.reduce(0.05);
    QCOMPARE(reduced.getControlPointsNumber(), 4U); // 0, 2 with its step, 3 and the end
    QCOMPARE(reduced[1]->time, 2.0);
    QCOMPARE(reduced[1]->type, zk_spline::stepped);
    QCOMPARE(reduced(2.999), 0.02);
    QCOMPARE(reduced(3.0), 5.0);
}

void TestSplineReduction::jumpsStay()
{
    SplineBase spline;
    for (const double time : {0.0, 0.5, 1.0}) {
        put(spline, makeKey(time, 2.0 * time));
    }
    for (const double value : {50.0, 7.0}) {
        put(spline, makeKey(1.0, value));
    }
    for (const double time : {2.0, 3.0}) {
        put(spline, makeKey(time, 6.0 + time));
    }
    const SplineBase reduced = spline.reduce(1e-6);
    QCOMPARE(reduced.getControlPointsNumber(), 4U); // 0, the foot and the head of the jump, 3
    QCOMPARE(reduced(1.0), 7.0);
    QVERIFY(std::abs(reduced(0.999999) - 2.0) < 1e-5);
}

void TestSplineReduction::aLineIntoAStepStaysStraight()
{
    SplineBase spline;
    for (const double time : {0.0, 1.0, 2.0, 3.0}) {
        put(spline, makeKey(time, time, time == 3.0 ? zk_spline::stepped : zk_spline::linear));
    }
    put(spline, makeKey(4.0, 10.0));
    const SplineBase reduced = spline.reduce(1e-9);
    QCOMPARE(reduced.getControlPointsNumber(), 3U);
    QCOMPARE(reduced(1.5), 1.5);
    QCOMPARE(reduced(3.5), 3.0);
}

void TestSplineReduction::aTangentThatIsFollowedStays_data()
{
    QTest::addColumn<std::vector<PointInfo>>("points");
    QTest::addColumn<double>("tolerance");
    const SplineBase sine = bakedSine(6.0);
    std::vector<PointInfo> points;
    for (const PointInfo* key : sine.keys()) {
        points.push_back(*key);
    }
    QTest::newRow("a sine") << points << 0.05;
    points = {makeKey(-4.0, 2.363, zk_spline::stepped), makeKey(-1.0, 1.438, zk_spline::stepped),
              makeKey(0.0, 4.791, zk_spline::bezier), makeKey(1.438, -4.669, zk_spline::bezier)};
    QTest::newRow("a small step before a great one") << points << 1.0;
    points[1].value = points[0].value;
    QTest::newRow("no step before a great one") << points << 1.0;
}

void TestSplineReduction::aTangentThatIsFollowedStays()
{
    QFETCH(std::vector<PointInfo>, points);
    QFETCH(double, tolerance);
    SplineBase spline;
    spline.addPoints(points);
    spline.setFirstNodeType(SplineBase::followTangent);
    spline.setLastNodeType(SplineBase::followTangent);
    const SplineBase reduced = spline.reduce(tolerance);
    QVERIFY(reduced.getControlPointsNumber() < 10);
    for (const double time : {-1000.0, -11.0, -4.5, 7.0, 1000.0}) {
        QVERIFY(std::abs(reduced(time) - spline(time)) < 1e-9);
    }
}

void TestSplineReduction::fieldsAndEndsStay()
{
    SplineBase spline = bakedSine(3.0);
    spline.setFirstNodeType(SplineBase::zero);
    spline.setLastNodeType(SplineBase::loopOffset);
    spline.setDefaultValue(3.0);
    spline.setAddFunc(true);
    const SplineBase reduced = spline.reduce(0.1);
    QCOMPARE(reduced.firstNodeType(), SplineBase::zero);
    QCOMPARE(reduced.lastNodeType(), SplineBase::loopOffset);
    QCOMPARE(reduced.getDefaultValue(), 3.0);
    QVERIFY(reduced.isAddFunc());
    QCOMPARE(reduced.firstKey()->value, spline.firstKey()->value);
    QCOMPARE(reduced.lastKey()->value, spline.lastKey()->value);
}

void TestSplineReduction::whatCannotBeWorkedOnComesBackAsItIs_data()
{
    QTest::addColumn<double>("time");
    QTest::addColumn<double>("value");
    QTest::newRow("a value that is no number") << 1.5 << notANumber;
    QTest::newRow("an endless value") << 1.5 << infinity;
    QTest::newRow("a time that is no number") << notANumber << 1.0;
    QTest::newRow("an endless time") << infinity << 1.0;
    QTest::newRow("a value at the end of the numbers") << 1.5 << 1.7e308;
}

void TestSplineReduction::whatCannotBeWorkedOnComesBackAsItIs()
{
    QFETCH(double, time);
    QFETCH(double, value);
    SplineBase spline;
    for (const double each : {0.0, 1.0, 2.0, 3.0}) {
        put(spline, makeKey(each, 0.0, zk_spline::tcb));
    }
    put(spline, makeKey(time, value, zk_spline::tcb));
    const SplineBase reduced = spline.reduce(10.0);
    QCOMPARE(reduced.getControlPointsNumber(), 5U);
    QCOMPARE(reduced[2]->type, zk_spline::tcb);
    QCOMPARE(SplineBase().reduce(1.0).getControlPointsNumber(), 0U);
}

void TestSplineReduction::oddTolerancesCountAsNone_data()
{
    QTest::addColumn<double>("tolerance");
    QTest::newRow("negative") << -1.0;
    QTest::newRow("no number") << notANumber;
}

void TestSplineReduction::oddTolerancesCountAsNone()
{
    QFETCH(double, tolerance);
    const SplineBase spline = bakedSine(1.0);
    QCOMPARE(spline.reduce(tolerance).getControlPointsNumber(),
             spline.reduce(0.0).getControlPointsNumber());
    QVERIFY(greatestError(spline, spline.reduce(tolerance), timesWithin(spline)) < 1e-12);
}

QTEST_APPLESS_MAIN(TestSplineReduction)
#include "test_spline_reduction.moc"
