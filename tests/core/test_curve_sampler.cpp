#include "core/RandomCurves.h"
#include "core/SamplerSources.h"
#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

bool isSame(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

void compareWithLive(RandomCurves& curves, int count)
{
    for (int curve = 0; curve < count; ++curve) {
        const auto spline = curves.next();
        const auto sampler = samplerOf(*spline);
        std::vector<double> times = curves.timesFor(*spline);
        const std::vector<double> inAnyOrder = sampler->values(times);
        std::sort(times.begin(), times.end());
        times.erase(std::remove_if(times.begin(), times.end(),
                                   [](double time) { return std::isnan(time); }),
                    times.end());
        const std::vector<double> ascending = sampler->values(times);
        for (std::size_t i = 0; i < times.size(); ++i) {
            const double live = (*spline)(times[i]);
            if (!isSame(sampler->value(times[i]), live) || !isSame(ascending[i], live)) {
                QFAIL(qPrintable(QString("curve %1 at %2: %3 and %4 for %5")
                                     .arg(curve)
                                     .arg(times[i], 0, 'g', 17)
                                     .arg(sampler->value(times[i]), 0, 'g', 17)
                                     .arg(ascending[i], 0, 'g', 17)
                                     .arg(live, 0, 'g', 17)));
            }
        }
        QVERIFY(std::count_if(inAnyOrder.begin(), inAnyOrder.end(), [&](double value) {
                    return std::any_of(ascending.begin(), ascending.end(),
                                       [&](double other) { return isSame(value, other); }) ||
                           std::isnan(value);
                }) == static_cast<std::ptrdiff_t>(inAnyOrder.size()));
    }
}

} // namespace

/// Keys as samplers evaluate them, beside the live spline.
class TestCurveSampler : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void anyCurveHasTheValuesOfTheLiveOne_data();
    void anyCurveHasTheValuesOfTheLiveOne();
    void keysOfAnyDensityAreFound_data();
    void keysOfAnyDensityAreFound();
    void arrayOfTimesMayTakeTheValues();
    void aRangeHasTheValuesAtItsTimes();
    void aRangeOfInfiniteStepsBeginsAtItsFirstTime();
    void nothingAndASplineWithoutKeysHaveValues();
    void editsDoNotReachIt();
    void keysOutOfOrderAreTakenInOrder();
    void valuesAreHeldWithinLimits();
    void keyTimesAreThoseOfTheKeys();
};

void TestCurveSampler::anyCurveHasTheValuesOfTheLiveOne_data()
{
    QTest::addColumn<bool>("isWild");
    QTest::addColumn<int>("count");
    QTest::newRow("numbers") << false << 60000;
    QTest::newRow("fields that are no numbers") << true << 40000;
}

void TestCurveSampler::anyCurveHasTheValuesOfTheLiveOne()
{
    QFETCH(bool, isWild);
    QFETCH(int, count);
    RandomCurves curves(isWild ? 7 : 3, isWild);
    compareWithLive(curves, count);
}

void TestCurveSampler::keysOfAnyDensityAreFound_data()
{
    QTest::addColumn<double>("growth");
    QTest::newRow("even") << 1.0;
    QTest::newRow("ever farther apart") << 1.1;
    QTest::newRow("nearly all at one place") << 1.5;
}

void TestCurveSampler::keysOfAnyDensityAreFound()
{
    QFETCH(double, growth);
    SplineBase spline;
    double time = -1.0;
    double gap = 1e-6;
    for (int i = 0; i < 1000; ++i) {
        put(spline, makeKey(time, i % 7, zk_spline::stepped));
        time += gap;
        gap = std::min(gap * growth, 1e300);
    }
    const auto sampler = samplerOf(spline);
    for (const PointInfo* key : spline.getControlPoints()) {
        for (const double near : {std::nextafter(key->time, -infinity), key->time,
                                  std::nextafter(key->time, infinity)}) {
            QCOMPARE(sampler->value(near), spline(near));
        }
    }
}

void TestCurveSampler::arrayOfTimesMayTakeTheValues()
{
    RandomCurves curves(5, false);
    const auto spline = curves.next();
    const auto sampler = samplerOf(*spline);
    std::vector<double> times;
    for (int i = 0; i < 1000; ++i) {
        times.push_back(curves.number());
    }
    const std::vector<double> expected = sampler->values(times);
    sampler->values(times.data(), times.data(), times.size());
    QCOMPARE(times, expected);
}

void TestCurveSampler::aRangeHasTheValuesAtItsTimes()
{
    RandomCurves curves(11, false);
    for (int curve = 0; curve < 200; ++curve) {
        const auto spline = curves.next();
        const auto sampler = samplerOf(*spline);
        for (const double step : {0.013, -0.021, 0.0, 1e9}) {
            std::vector<double> values(700);
            sampler->values(-3.0, step, values.size(), values.data());
            for (std::size_t i = 0; i < values.size(); ++i) {
                QCOMPARE(values[i], (*spline)(-3.0 + static_cast<double>(i) * step));
            }
        }
    }
}

void TestCurveSampler::aRangeOfInfiniteStepsBeginsAtItsFirstTime()
{
    SplineBase spline;
    spline.addPoint(1.0, 10.0);
    spline.addPoint(3.0, 30.0);
    const auto sampler = samplerOf(spline);
    for (const double step : {infinity, -infinity}) {
        std::vector<double> values(600);
        sampler->values(2.0, step, values.size(), values.data());
        QCOMPARE(values.front(), spline(2.0));
        QCOMPARE(values[1], step > 0.0 ? 30.0 : 10.0);
        QCOMPARE(values.back(), values[1]);
        sampler->values(2.0, step, 1, values.data());
        QCOMPARE(values.front(), spline(2.0));
    }
}

void TestCurveSampler::nothingAndASplineWithoutKeysHaveValues()
{
    QCOMPARE(CurveSampler::make({})->value(2.0), 0.0);
    SplineBase spline;
    spline.setDefaultValue(4.0);
    const auto sampler = samplerOf(spline);
    QCOMPARE(sampler->value(2.0), 4.0);
    QCOMPARE(sampler->value(notANumber), 4.0);
    QCOMPARE(sampler->values({1.0, 2.0}), std::vector<double>({4.0, 4.0}));
    QCOMPARE(sampler->derivative(1.0), 0.0);
    QCOMPARE(sampler->bounds(0.0, 1.0).lowest, 4.0);
    QVERIFY(sampler->keyTimes().empty());
}

void TestCurveSampler::editsDoNotReachIt()
{
    CurveSampler::Pointer sampler;
    {
        SplineBase spline;
        PointInfo* const key = put(spline, makeKey(0.0, 1.0));
        put(spline, makeKey(2.0, 3.0));
        sampler = samplerOf(spline);
        spline.setPos(key, 100.0);
    }
    QCOMPARE(sampler->value(1.0), 2.0);
}

void TestCurveSampler::keysOutOfOrderAreTakenInOrder()
{
    SplineBase spline;
    PointInfo* const key = put(spline, makeKey(0.0, 10.0));
    put(spline, makeKey(1.0, 20.0));
    put(spline, makeKey(2.0, 30.0));
    spline.setLastNodeType(SplineBase::zero);
    key->time = 1.5;
    const auto sampler = samplerOf(spline);
    QCOMPARE(sampler->keyTimes(), std::vector<double>({1.0, 1.5, 2.0}));
    QCOMPARE(sampler->value(1.25), 15.0);
    QCOMPARE(sampler->value(3.0), 0.0);
}

void TestCurveSampler::valuesAreHeldWithinLimits()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 0.0));
    put(spline, makeKey(10.0, 10.0));
    CurveSampler::Source source;
    source.spline = &spline;
    source.minimum = 2.0;
    source.maximum = 7.0;
    const auto sampler = CurveSampler::make(source);
    QCOMPARE(sampler->value(1.0), 2.0);
    QCOMPARE(sampler->value(5.0), 5.0);
    QCOMPARE(sampler->values({1.0, 9.0}), std::vector<double>({2.0, 7.0}));
    QVERIFY(std::isnan(sampler->value(notANumber)));
    const ValueBounds bounds = sampler->bounds(4.0, 10.0);
    QCOMPARE(bounds.lowest, 4.0);
    QCOMPARE(bounds.highest, 7.0);
}

void TestCurveSampler::keyTimesAreThoseOfTheKeys()
{
    RandomCurves curves(2, false);
    const auto spline = curves.next();
    QCOMPARE(samplerOf(*spline)->keyTimes(), timesOf(*spline));
}

QTEST_APPLESS_MAIN(TestCurveSampler)
#include "test_curve_sampler.moc"
