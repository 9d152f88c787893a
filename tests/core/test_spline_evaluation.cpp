#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

bool isCurved(const PointInfo& key)
{
    return key.type == zk_spline::bezier || key.type == zk_spline::tcb;
}

/// The way covered after the share u of the time by something that speeds up evenly over the
/// first a, rolls, and slows down evenly over the last b; the whole way is 1.
double wayCovered(double u, double a, double b)
{
    const double sum = a + b;
    if (sum > 1.0) {
        a /= sum;
        b /= sum;
    }
    const double topSpeed = 2.0 / (2.0 - a - b);
    double way = 0.0;
    if (a > 0.0) {
        const double part = std::min(u, a);
        way += topSpeed * part * (part / a) / 2.0;
    }
    way += topSpeed * std::max(0.0, std::min(u, 1.0 - b) - a);
    if (u > 1.0 - b && b > 0.0) {
        const double part = u - (1.0 - b);
        way += topSpeed * (part - part * part / b / 2.0);
    }
    return way;
}

/// De Casteljau's construction on the four control values.
double deCasteljau(std::vector<double> values, double u)
{
    while (values.size() > 1) {
        for (std::size_t i = 0; i + 1 < values.size(); ++i) {
            values[i] = (1.0 - u) * values[i] + u * values[i + 1];
        }
        values.pop_back();
    }
    return values.front();
}

/// Tangent of the key at the index by Kochanek and Bartels, `side` +1 outgoing and -1 incoming.
double publishedSlope(const std::vector<PointInfo>& keys, std::size_t index, double side)
{
    const PointInfo& key = keys[index];
    if (key.type == zk_spline::bezier) {
        return side > 0 ? key.bezier.tangentRight : key.bezier.tangentLeft;
    }
    const bool hasBefore = index > 0;
    const bool hasAfter = index + 1 < keys.size();
    const PointInfo& from = hasBefore ? keys[index - 1] : key;
    const PointInfo& to = hasAfter ? keys[index + 1] : key;
    double d0 = key.value - from.value;
    double h0 = key.time - from.time;
    double d1 = to.value - key.value;
    double h1 = to.time - key.time;
    if (!hasBefore) {
        d0 = d1;
        h0 = h1;
    }
    if (!hasAfter) {
        d1 = d0;
        h1 = h0;
    }
    const double t = key.tcb.tension;
    const double c = key.tcb.continuity * side;
    const double b = key.tcb.bias;
    const double tangent =
        (1.0 - t) * (1.0 + c) * (1.0 + b) / 2.0 * d0 + (1.0 - t) * (1.0 - c) * (1.0 - b) / 2.0 * d1;
    return 2.0 * tangent / (h0 + h1);
}

double reference(const std::vector<PointInfo>& keys, double time)
{
    std::size_t index = 0;
    while (index + 2 < keys.size() && keys[index + 1].time <= time) {
        ++index;
    }
    const PointInfo& left = keys[index];
    const PointInfo& right = keys[index + 1];
    if (left.type == zk_spline::stepped) {
        return time < right.time ? left.value : right.value;
    }
    const double run = right.time - left.time;
    const double u = wayCovered((time - left.time) / run, left.tcb.easeFrom, right.tcb.easeTo);
    if (!isCurved(left) || !isCurved(right)) {
        return deCasteljau({left.value, right.value}, u);
    }
    const double out = publishedSlope(keys, index, 1.0) * run / 3.0;
    const double in = publishedSlope(keys, index + 1, -1.0) * run / 3.0;
    return deCasteljau({left.value, left.value + out, right.value - in, right.value}, u);
}

std::vector<PointInfo> randomKeys(std::mt19937& random, int count)
{
    std::uniform_real_distribution<double> gap(0.1, 2.0);
    std::uniform_real_distribution<double> value(-1.0, 1.0);
    std::uniform_real_distribution<double> ease(0.0, 1.0);
    std::uniform_int_distribution<int> type(0, 4);
    std::vector<PointInfo> keys;
    double time = -2.0;
    for (int i = 0; i < count; ++i) {
        PointInfo key =
            makeKey(time, value(random), static_cast<zk_spline::interpolationType>(type(random)));
        key.bezier = {value(random), value(random)};
        key.tcb = {value(random), value(random), value(random), 0.0, 0.0};
        if (i % 2 == 0) {
            key.tcb.easeTo = ease(random);
            key.tcb.easeFrom = ease(random);
        }
        keys.push_back(key);
        time += gap(random);
    }
    return keys;
}

} // namespace

class TestSplineEvaluation : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void everyKindOfSegmentAgreesWithDeCasteljau();
    void walkingAndJumpingGiveTheSame();
    void keysAreMetExactly();
    void withoutKeysTheDefaultValueStands();
    void aSteppedKeyHoldsItsValueUntilTheNextKey();
    void aCurvedKeyBeforeAStraightOneGivesAStraightLine();
    void anUnknownInterpolationCountsAsLinear();
    void aLinearKeyIgnoresItsTangentsAndTcbData();
    void keysOnAStraightLineReproduceIt_data();
    void keysOnAStraightLineReproduceIt();
    void keysOfOneTimeMakeAStep();
    void endlessTimesOfKeysGiveTheirValues();
    void aTimeOfNanGivesNan();
    void aKeyOfNanTimeLeavesTheOthersAlone();
    void editsAreSeenAtOnce();
};

void TestSplineEvaluation::everyKindOfSegmentAgreesWithDeCasteljau()
{
    std::mt19937 random(11);
    for (int round = 0; round < 300; ++round) {
        const std::vector<PointInfo> keys = randomKeys(random, 2 + round % 9);
        SplineBase spline;
        for (const PointInfo& key : keys) {
            put(spline, key);
        }
        std::uniform_real_distribution<double> within(keys.front().time, keys.back().time);
        for (int i = 0; i < 60; ++i) {
            const double time = within(random);
            const double difference = spline(time) - reference(keys, time);
            QVERIFY2(std::abs(difference) < 1e-12, qPrintable(QString::number(difference)));
        }
    }
}

void TestSplineEvaluation::walkingAndJumpingGiveTheSame()
{
    std::mt19937 random(12);
    const std::vector<PointInfo> keys = randomKeys(random, 40);
    SplineBase walked;
    for (const PointInfo& key : keys) {
        put(walked, key);
    }
    const double start = keys.front().time - 1.0;
    const double end = keys.back().time + 1.0;
    for (int i = 0; i <= 2000; ++i) {
        const double time = start + (end - start) * i / 2000.0;
        SplineBase fresh;
        fresh.copy(walked);
        QCOMPARE(walked(time), fresh(time));
    }
    for (int i = 2000; i >= 0; --i) {
        const double time = start + (end - start) * i / 2000.0;
        const double backward = walked(time);
        walked(end - (time - start));
        QCOMPARE(walked(time), backward);
    }
}

void TestSplineEvaluation::keysAreMetExactly()
{
    std::mt19937 random(13);
    const std::vector<PointInfo> keys = randomKeys(random, 30);
    SplineBase spline;
    for (const PointInfo& key : keys) {
        put(spline, key);
    }
    for (const PointInfo& key : keys) {
        QCOMPARE(spline(key.time), key.value);
    }
}

void TestSplineEvaluation::withoutKeysTheDefaultValueStands()
{
    SplineBase spline;
    QCOMPARE(spline(1.0), 0.0);
    spline.setDefaultValue(2.5);
    for (const int type : {-1, 0, 1, 2, 3, 4, 99}) {
        spline.setFirstNodeType(static_cast<SplineBase::nodeType>(type));
        spline.setLastNodeType(static_cast<SplineBase::nodeType>(type));
        for (const double time : {-1e300, 0.0, 1e300, infinity, notANumber}) {
            QCOMPARE(spline(time), 2.5);
        }
    }
}

void TestSplineEvaluation::aSteppedKeyHoldsItsValueUntilTheNextKey()
{
    SplineBase spline;
    PointInfo step = makeKey(0.0, 1.0, zk_spline::stepped);
    step.tcb.easeFrom = 0.5;
    put(spline, step);
    put(spline, makeKey(2.0, 5.0, zk_spline::bezier));
    QCOMPARE(spline(0.0), 1.0);
    QCOMPARE(spline(std::nextafter(2.0, 0.0)), 1.0);
    QCOMPARE(spline(2.0), 5.0);
}

void TestSplineEvaluation::aCurvedKeyBeforeAStraightOneGivesAStraightLine()
{
    for (const auto second : {zk_spline::linear, zk_spline::stepped}) {
        SplineBase spline;
        PointInfo curved = makeKey(0.0, 0.0, zk_spline::bezier);
        curved.bezier = {50.0, 50.0};
        put(spline, curved);
        put(spline, makeKey(4.0, 8.0, second));
        QCOMPARE(spline(1.0), 2.0);
    }
}

void TestSplineEvaluation::anUnknownInterpolationCountsAsLinear()
{
    for (const int number : {-1, 4, std::numeric_limits<int>::max()}) {
        SplineBase spline;
        put(spline, makeKey(0.0, 0.0, static_cast<zk_spline::interpolationType>(number)));
        put(spline, makeKey(4.0, 8.0, zk_spline::tcb));
        QCOMPARE(spline(1.0), 2.0);
        double length = 0.0;
        QCOMPARE(spline.getTangentRightAtNode(1, length), 2.0);
    }
}

void TestSplineEvaluation::aLinearKeyIgnoresItsTangentsAndTcbData()
{
    SplineBase spline;
    PointInfo key = makeKey(0.0, 0.0);
    key.bezier = {1e300, notANumber};
    key.tcb.tension = -infinity;
    key.tcb.continuity = notANumber;
    key.tcb.bias = 1e308;
    put(spline, key);
    key.time = 2.0;
    key.value = 6.0;
    put(spline, key);
    QCOMPARE(spline(0.5), 1.5);
}

void TestSplineEvaluation::keysOnAStraightLineReproduceIt_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<std::vector<double>>("times");
    for (const int type : {0, 1, 2}) {
        const auto row = [type](const char* name, const std::vector<double>& times) {
            QTest::addRow("%s, type %d", name, type) << type << times;
        };
        row("two keys", {0.0, 3.0});
        row("even gaps", {0.0, 1.0, 2.0, 3.0});
        row("uneven gaps", {-4.0, -3.9, 0.0, 10.0, 10.25});
    }
}

void TestSplineEvaluation::keysOnAStraightLineReproduceIt()
{
    QFETCH(int, type);
    QFETCH(std::vector<double>, times);
    SplineBase spline;
    for (const double time : times) {
        PointInfo key = makeKey(time, 3.0 - 2.0 * time);
        key.type = static_cast<zk_spline::interpolationType>(type);
        key.bezier = {-2.0, -2.0};
        put(spline, key);
    }
    for (int i = 0; i <= 100; ++i) {
        const double time = times.front() + (times.back() - times.front()) * i / 100.0;
        QVERIFY(std::abs(spline(time) - (3.0 - 2.0 * time)) < 1e-12);
    }
}

void TestSplineEvaluation::keysOfOneTimeMakeAStep()
{
    for (const int type : {0, 1, 2, 3}) {
        SplineBase spline;
        double value = 0.0;
        for (const double time : {0.0, 1.0, 1.0, 2.0}) {
            put(spline, makeKey(time, value++, static_cast<zk_spline::interpolationType>(type)));
        }
        QVERIFY(std::isfinite(spline(0.5)));
        QCOMPARE(spline(1.0), 2.0);
        QVERIFY(std::isfinite(spline(1.5)));
    }
    SplineBase single;
    put(single, makeKey(1.0, 1.0, zk_spline::tcb));
    put(single, makeKey(1.0, 2.0, zk_spline::tcb));
    QCOMPARE(single(1.0), 2.0);
}

void TestSplineEvaluation::endlessTimesOfKeysGiveTheirValues()
{
    for (const int type : {0, 1, 2, 3}) {
        const auto kind = static_cast<zk_spline::interpolationType>(type);
        SplineBase spline;
        put(spline, makeKey(-infinity, 1.0, kind));
        put(spline, makeKey(0.0, 2.0, kind));
        put(spline, makeKey(infinity, 3.0, kind));
        QCOMPARE(spline(-5.0), 1.0);
        QCOMPARE(spline(0.0), 2.0);
        QCOMPARE(spline(5.0), 2.0);
        QCOMPARE(spline(infinity), 3.0);
        QCOMPARE(spline(-infinity), 1.0);
    }
}

void TestSplineEvaluation::aTimeOfNanGivesNan()
{
    SplineBase spline;
    for (const double time : {0.0, 1.0, 2.0, 3.0}) {
        spline.addPoint(time, time);
        QVERIFY(std::isnan(spline(notANumber)));
    }
}

void TestSplineEvaluation::aKeyOfNanTimeLeavesTheOthersAlone()
{
    SplineBase spline;
    for (const double time : {0.0, 1.0, 2.0, notANumber}) {
        spline.addPoint(time, time);
    }
    QCOMPARE(spline(0.5), 0.5);
    QCOMPARE(spline(2.0), 2.0);
    QCOMPARE(spline(7.0), 2.0);
    SplineBase lost;
    lost.addPoint(notANumber, 3.0);
    QCOMPARE(lost(1.0), 3.0);
}

void TestSplineEvaluation::editsAreSeenAtOnce()
{
    SplineBase spline;
    for (int i = 0; i < 6; ++i) {
        put(spline, makeKey(i, i));
    }
    QCOMPARE(spline(4.5), 4.5);
    spline.setPos(spline[5], 6.0);
    QCOMPARE(spline(4.5), 5.0);
    PointInfo* const taken = spline.at(4);
    spline.remove(taken);
    delete taken;
    QCOMPARE(spline(4.5), 5.25);
    spline.removeAllControlPoints();
    put(spline, makeKey(0.0, 1.0));
    QCOMPARE(spline(4.5), 1.0);
}

QTEST_APPLESS_MAIN(TestSplineEvaluation)
#include "test_spline_evaluation.moc"
