#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace

class TestSplineEase : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aBezierKeyIgnoresItsTcbDataButEase();
    void easeIsMonotoneAndMirrored();
    void easeOutsideItsRangeIsHeld();
    void theSmallestEaseStillGivesNumbers();
};

void TestSplineEase::aBezierKeyIgnoresItsTcbDataButEase()
{
    SplineBase clean;
    SplineBase dirty;
    for (const double time : {0.0, 1.0, 3.0}) {
        PointInfo key = makeKey(time, time * time, zk_spline::bezier);
        key.bezier = {2.0 * time, 2.0 * time};
        put(clean, key);
        key.tcb.tension = notANumber;
        key.tcb.continuity = 7.0;
        key.tcb.bias = infinity;
        put(dirty, key);
    }
    for (const double time : {0.25, 0.5, 2.0, 2.75}) {
        QCOMPARE(dirty(time), clean(time));
        QVERIFY(std::abs(clean(time) - time * time) < 1e-12);
    }
    dirty.setTcb(0U, {notANumber, 7.0, infinity, 0.0, 1.0});
    QVERIFY(dirty(0.5) < clean(0.5));
}

void TestSplineEase::easeIsMonotoneAndMirrored()
{
    for (const double from : {0.0, 0.3, 0.7, 1.0}) {
        for (const double to : {0.0, 0.2, 0.9, 1.0}) {
            SplineBase there;
            SplineBase back;
            PointInfo key = makeKey(0.0, 0.0);
            key.tcb.easeFrom = from;
            put(there, key);
            key.tcb.easeFrom = to;
            put(back, key);
            key = makeKey(1.0, 1.0);
            key.tcb.easeTo = to;
            put(there, key);
            key.tcb.easeTo = from;
            put(back, key);
            double previous = 0.0;
            for (int i = 0; i <= 1000; ++i) {
                const double time = i / 1000.0;
                QVERIFY(there(time) >= previous);
                previous = there(time);
                QVERIFY(std::abs(there(time) + back(1.0 - time) - 1.0) < 1e-12);
            }
            QCOMPARE(previous, 1.0);
        }
    }
}

void TestSplineEase::easeOutsideItsRangeIsHeld()
{
    const auto halfway = [](double from, double to) {
        SplineBase spline;
        PointInfo key = makeKey(0.0, 0.0);
        key.tcb.easeFrom = from;
        put(spline, key);
        key = makeKey(1.0, 1.0);
        key.tcb.easeTo = to;
        put(spline, key);
        return spline(0.25);
    };
    QCOMPARE(halfway(5.0, 0.0), halfway(1.0, 0.0));
    QCOMPARE(halfway(-3.0, 0.5), halfway(0.0, 0.5));
    QCOMPARE(halfway(infinity, -infinity), halfway(1.0, 0.0));
    QCOMPARE(halfway(notANumber, notANumber), 0.25);
}

void TestSplineEase::theSmallestEaseStillGivesNumbers()
{
    SplineBase spline;
    PointInfo key = makeKey(0.0, 0.0);
    key.tcb.easeFrom = 1e-310;
    put(spline, key);
    put(spline, makeKey(1.0, 1.0));
    QVERIFY(std::abs(spline(1e-312)) < 1e-300);
    QCOMPARE(spline(0.5), 0.5);
}

QTEST_APPLESS_MAIN(TestSplineEase)
#include "test_spline_ease.moc"
