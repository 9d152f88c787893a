#include "core/RandomCurves.h"
#include "core/SamplerSources.h"
#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <cmath>

namespace {

bool isSameNumber(double number, double other, double tolerance)
{
    constexpr double nothing = 1e-300;
    return number == other || std::abs(number - other) < nothing ||
           (std::isnan(number) && std::isnan(other)) ||
           std::abs(number - other) <= tolerance * std::max(std::abs(number), std::abs(other));
}

QString told(int curve, double time, double is, double was)
{
    return QString("curve %1 at %2: %3 for %4").arg(curve).arg(time).arg(is).arg(was);
}

} // namespace

/// Slopes and bounds that a spline tells itself are those that its samplers tell, whose tests hold
/// them against values.
class TestSplineShape : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void slopesAreThoseOfSamplers_data();
    void slopesAreThoseOfSamplers();
    void boundsAreThoseOfSamplers_data();
    void boundsAreThoseOfSamplers();
    void boundsOfAShortStretchOfManyKeys();
};

void TestSplineShape::slopesAreThoseOfSamplers_data()
{
    QTest::addColumn<bool>("isWild");
    QTest::newRow("plain numbers") << false;
    QTest::newRow("numbers that leave their range") << true;
}

void TestSplineShape::slopesAreThoseOfSamplers()
{
    QFETCH(bool, isWild);
    RandomCurves curves(61, isWild);
    for (int curve = 0; curve < 5000; ++curve) {
        const auto spline = curves.next();
        const auto sampler = samplerOf(*spline);
        for (const double time : curves.timesFor(*spline)) {
            const double is = spline->derivative(time);
            const double was = sampler->derivative(time);
            if (!isWild || std::isfinite(was)) {
                // Differences of like numbers leave few digits near a level place.
                const double size = isWild ? 1e-9 : 1e-9 + 1e-9 / std::max(std::abs(was), 1e-300);
                QVERIFY2(isSameNumber(is, was, size), qPrintable(told(curve, time, is, was)));
            }
        }
    }
}

void TestSplineShape::boundsAreThoseOfSamplers_data()
{
    slopesAreThoseOfSamplers_data();
}

void TestSplineShape::boundsAreThoseOfSamplers()
{
    QFETCH(bool, isWild);
    RandomCurves curves(62, isWild);
    for (int curve = 0; curve < 5000; ++curve) {
        const auto spline = curves.next();
        const auto sampler = samplerOf(*spline);
        const std::vector<double> times = curves.timesFor(*spline);
        for (std::size_t i = 0; i + 1 < times.size(); ++i) {
            const ValueBounds is = spline->bounds(times[i], times[i + 1]);
            const ValueBounds was = sampler->bounds(times[i], times[i + 1]);
            QVERIFY2(isSameNumber(is.lowest, was.lowest, 0.0),
                     qPrintable(told(curve, times[i], is.lowest, was.lowest)));
            QVERIFY2(isSameNumber(is.highest, was.highest, 0.0),
                     qPrintable(told(curve, times[i], is.highest, was.highest)));
        }
    }
}

void TestSplineShape::boundsOfAShortStretchOfManyKeys()
{
    SplineBase spline;
    for (int i = 0; i < 1000; ++i) {
        put(spline, makeKey(i, std::sin(i), zk_spline::tcb));
    }
    const auto sampler = samplerOf(spline);
    for (int i = 0; i < 990; ++i) {
        const ValueBounds is = spline.bounds(i + 0.25, i + 3.5);
        const ValueBounds was = sampler->bounds(i + 0.25, i + 3.5);
        QCOMPARE(is.lowest, was.lowest);
        QCOMPARE(is.highest, was.highest);
    }
}

QTEST_APPLESS_MAIN(TestSplineShape)
#include "test_spline_shape.moc"
