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

/// The lowest and the highest of many values, among them those just beside the keys.
ValueBounds boundsByHand(SplineBase& spline, double from, double to)
{
    ValueBounds bounds;
    const auto take = [&](double time) {
        if (time >= from && time <= to) {
            bounds.take(spline(time));
        }
    };
    take(from);
    take(to);
    const std::vector<double> times = timesOf(spline);
    const double period = times.empty() ? 0.0 : times.back() - times.front();
    for (int round = -8; round <= 8; ++round) {
        for (std::size_t key = 0; key < times.size(); ++key) {
            const double time = times[key] + round * period;
            const double gap = 1e-9 * (period + std::abs(time));
            const double run = key + 1 < times.size() ? times[key + 1] - times[key] : 0.0;
            take(time - gap);
            take(time + gap);
            for (int i = 0; i <= 50; ++i) {
                take(time + run * i / 50.0);
            }
        }
    }
    return bounds;
}

} // namespace

/// Slopes and bounds that samplers tell of keys.
class TestSamplerShape : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void slopesAreThoseOfTheCurve();
    void slopesAtKeysAndJumpsAreOfWhatFollows();
    void aHeldValueHasNoSlope();

    void boundsHoldEveryValueAndAreReached();
    void boundsCountWhatAJumpComesUpTo();
    void boundsOfValuesNearTheEndsOfTheNumbers_data();
    void boundsOfValuesNearTheEndsOfTheNumbers();
    void boundsOfLoopsReachAsFarAsTheirLastRound();
    void boundsInEitherOrderAndWithoutNumbers();
};

void TestSamplerShape::slopesAreThoseOfTheCurve()
{
    RandomCurves curves(17, false);
    int compared = 0;
    for (int curve = 0; curve < 3000; ++curve) {
        const auto spline = curves.next();
        const auto sampler = samplerOf(*spline);
        for (const double time : curves.timesFor(*spline)) {
            const double step = 1e-6 * std::max(1.0, std::abs(time));
            const double before = (*spline)(time - step);
            const double here = (*spline)(time);
            const double behind = (*spline)(time + step);
            const double slope = (behind - before) / (2.0 * step);
            const double nearer =
                ((*spline)(time + step / 4.0) - (*spline)(time - step / 4.0)) / (0.5 * step);
            const double bend = behind - 2.0 * here + before; // a corner or a jump is near
            if (std::abs(time) > 1e7 || !std::isfinite(slope) || std::abs(slope) < 1e-3 ||
                std::abs(bend) > 1e-3 * std::abs(behind - before) ||
                std::abs(nearer - slope) > 1e-3 * std::abs(slope)) {
                continue;
            }
            const double tolerance = 1e-2 * std::abs(slope) + 1e-5;
            QVERIFY2(std::abs(sampler->derivative(time) - slope) < tolerance,
                     qPrintable(QString("curve %1 at %2: %3 for %4")
                                    .arg(curve)
                                    .arg(time)
                                    .arg(sampler->derivative(time))
                                    .arg(slope)));
            ++compared;
        }
    }
    QVERIFY(compared > 10000);
}

void TestSamplerShape::slopesAtKeysAndJumpsAreOfWhatFollows()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 0.0));
    put(spline, makeKey(1.0, 2.0, zk_spline::stepped));
    put(spline, makeKey(2.0, 0.0));
    put(spline, makeKey(4.0, 6.0));
    const auto sampler = samplerOf(spline);
    QCOMPARE(sampler->derivative(-1.0), 0.0);
    QCOMPARE(sampler->derivative(0.0), 2.0);
    QCOMPARE(sampler->derivative(1.0), 0.0);
    QCOMPARE(sampler->derivative(2.0), 3.0);
    QCOMPARE(sampler->derivative(4.0), 0.0);
    QVERIFY(std::isnan(sampler->derivative(notANumber)));
    spline.setLastNodeType(SplineBase::followTangent);
    QCOMPARE(samplerOf(spline)->derivative(4.0), 3.0);
    spline.setLastNodeType(SplineBase::loopOffset);
    QCOMPARE(samplerOf(spline)->derivative(4.5), 2.0);
}

void TestSamplerShape::aHeldValueHasNoSlope()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 0.0));
    put(spline, makeKey(10.0, 10.0));
    CurveSampler::Source source;
    source.spline = &spline;
    source.maximum = 5.0;
    const auto sampler = CurveSampler::make(source);
    QCOMPARE(sampler->derivative(3.0), 1.0);
    QCOMPARE(sampler->derivative(7.0), 0.0);
}

void TestSamplerShape::boundsOfValuesNearTheEndsOfTheNumbers_data()
{
    QTest::addColumn<double>("height");
    for (const double& height : {1e-300, 1e-170, 1.0, 1e160, 1e300}) {
        QTest::addRow("%g", height) << height;
    }
}

void TestSamplerShape::boundsOfValuesNearTheEndsOfTheNumbers()
{
    QFETCH(double, height);
    SplineBase spline;
    for (const double& time : {0.0, 1.0}) {
        auto* const key = new PointInfo;
        key->time = time;
        key->type = zk_spline::bezier;
        key->bezier = {time > 0.0 ? -4.0 * height : 0.0, time > 0.0 ? 0.0 : 4.0 * height};
        spline.addPointPtr(key);
    }
    QCOMPARE(samplerOf(spline)->bounds(0.0, 1.0).highest, spline(0.5));
}

void TestSamplerShape::boundsHoldEveryValueAndAreReached()
{
    RandomCurves curves(23, false);
    for (int curve = 0; curve < 2000; ++curve) {
        const auto spline = curves.next();
        const auto sampler = samplerOf(*spline);
        const std::vector<double> times = curves.timesFor(*spline);
        const double one = times[curves.below(2)];
        const double from = std::min(one, times.back());
        const double to = std::max(one, times.back());
        if (!(std::abs(from) < 1e12 && std::abs(to) < 1e12)) {
            continue;
        }
        const ValueBounds byHand = boundsByHand(*spline, from, to);
        const ValueBounds bounds = sampler->bounds(from, to);
        const double size = std::max({1e-9, byHand.highest - byHand.lowest,
                                      std::abs(byHand.highest), std::abs(byHand.lowest)});
        const QByteArray place = QByteArray::number(curve);
        QVERIFY2(bounds.lowest <= byHand.lowest + 1e-12 * size, place);
        QVERIFY2(bounds.highest >= byHand.highest - 1e-12 * size, place);
        QVERIFY2(bounds.lowest >= byHand.lowest - 2e-2 * size, place);
        QVERIFY2(bounds.highest <= byHand.highest + 2e-2 * size, place);
    }
}

void TestSamplerShape::boundsCountWhatAJumpComesUpTo()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 0.0));
    put(spline, makeKey(1.0, 8.0));
    put(spline, makeKey(1.0, -3.0));
    put(spline, makeKey(2.0, 1.0));
    QCOMPARE(samplerOf(spline)->bounds(0.5, 2.0).highest, 8.0);
    QCOMPARE(samplerOf(spline)->bounds(0.5, 2.0).lowest, -3.0);
    QCOMPARE(samplerOf(spline)->bounds(1.0, 2.0).highest, 1.0);
}

void TestSamplerShape::boundsOfLoopsReachAsFarAsTheirLastRound()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 1.0));
    put(spline, makeKey(0.5, 5.0));
    put(spline, makeKey(1.0, 2.0));
    spline.setFirstNodeType(SplineBase::loop);
    spline.setLastNodeType(SplineBase::loopOffset);
    const auto sampler = samplerOf(spline);
    QCOMPARE(sampler->bounds(0.0, 10.75).highest, 15.0);
    QCOMPARE(sampler->bounds(5.0, 9.25).lowest, 6.0);
    QCOMPARE(sampler->bounds(5.0, 9.25).highest, 13.0);
    QCOMPARE(sampler->bounds(-7.5, -0.25).highest, 5.0);
    QCOMPARE(sampler->bounds(-7.5, 0.0).lowest, 1.0);
    QCOMPARE(sampler->bounds(0.0, infinity).highest, infinity);
    QCOMPARE(sampler->bounds(-infinity, 0.0).highest, 5.0);
}

void TestSamplerShape::boundsInEitherOrderAndWithoutNumbers()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 1.0));
    put(spline, makeKey(4.0, 5.0));
    const auto sampler = samplerOf(spline);
    QCOMPARE(sampler->bounds(3.0, 1.0).lowest, 2.0);
    QCOMPARE(sampler->bounds(3.0, 1.0).highest, 4.0);
    QCOMPARE(sampler->bounds(2.0, 2.0).highest, 3.0);
    QVERIFY(std::isnan(sampler->bounds(notANumber, 1.0).lowest));
    SplineBase none;
    put(none, makeKey(0.0, notANumber));
    QVERIFY(std::isnan(samplerOf(none)->bounds(-1.0, 1.0).highest));
}

QTEST_APPLESS_MAIN(TestSamplerShape)
#include "test_sampler_shape.moc"
