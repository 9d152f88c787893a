#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double firstTime = 1.0;
constexpr double lastTime = 4.0;
constexpr double firstValue = 2.0;
constexpr double lastValue = 3.0;
constexpr double slopeIntoLast = -1.5;
constexpr double slopeOutOfFirst = 0.75;

const char* const behaviourNames[] = {"zero", "constant", "loop", "loop with offset",
                                      "follow tangent"};

/// Keys from 1 s to 4 s with a slope of its own at either end.
void fill(SplineBase& spline)
{
    PointInfo key = makeKey(firstTime, firstValue, zk_spline::bezier);
    key.bezier = {99.0, slopeOutOfFirst};
    put(spline, key);
    put(spline, makeKey(2.0, 5.0, zk_spline::tcb));
    key = makeKey(lastTime, lastValue, zk_spline::bezier);
    key.bezier = {slopeIntoLast, 99.0};
    put(spline, key);
}

/// What stands outside, told step by step instead of in one formula.
double expected(SplineBase& spline, int behaviour, double time)
{
    const bool before = time < firstTime;
    const double period = lastTime - firstTime;
    const double direction = before ? 1.0 : -1.0;
    double inside = time;
    double rounds = 0.0;
    while (inside < firstTime || inside >= lastTime) {
        inside += direction * period;
        rounds -= direction;
    }
    switch (behaviour) {
    case SplineBase::zero:
        return 0.0;
    case SplineBase::loop:
        return spline(inside);
    case SplineBase::loopOffset:
        return spline(inside) + rounds * (lastValue - firstValue);
    case SplineBase::followTangent:
        return before ? firstValue + slopeOutOfFirst * (time - firstTime)
                      : lastValue + slopeIntoLast * (time - lastTime);
    default:
        return before ? firstValue : lastValue;
    }
}

void setBoth(SplineBase& spline, SplineBase::nodeType behaviour)
{
    spline.setFirstNodeType(behaviour);
    spline.setLastNodeType(behaviour);
}

} // namespace

class TestSplineBehaviours : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void everyPairBeforeAndAfter_data();
    void everyPairBeforeAndAfter();
    void theKeysThemselvesBelongToTheInside();
    void loopsWithOffsetGoOnWithoutAGap();
    void aNumberThatIsNoBehaviourCountsAsConstant();
    void aPeriodOfZeroIsConstant();
    void followTangentOfAStraightSegmentTakesItsSlope();
    void followTangentOfASteppedSegmentStaysLevel();
    void followTangentOfATcbEndTakesItsTangent();
    void followTangentOfASingleKey_data();
    void followTangentOfASingleKey();
    void farTimesReturn_data();
    void farTimesReturn();
    void loopsFarAwayStillRepeat();
    void countlessRoundsOfNoRiseAreNoRise();

    void anExpressionIsAddedAtItsMoment();
    void withoutAnExpressionTheSplineStandsAlone();
    void theVariablesAreRestoredAfterAnEvaluation();
};

void TestSplineBehaviours::everyPairBeforeAndAfter_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    for (int before = 0; before < 5; ++before) {
        for (int after = 0; after < 5; ++after) {
            QTest::addRow("%s before, %s after", behaviourNames[before], behaviourNames[after])
                << before << after;
        }
    }
}

void TestSplineBehaviours::everyPairBeforeAndAfter()
{
    QFETCH(int, before);
    QFETCH(int, after);
    SplineBase spline;
    fill(spline);
    spline.setFirstNodeType(static_cast<SplineBase::nodeType>(before));
    spline.setLastNodeType(static_cast<SplineBase::nodeType>(after));
    for (int i = 1; i < 200; ++i) {
        const double distance = i * 0.0625;
        const double early = firstTime - distance;
        const double late = lastTime + distance;
        QVERIFY(std::abs(spline(early) - expected(spline, before, early)) < 1e-12);
        QVERIFY(std::abs(spline(late) - expected(spline, after, late)) < 1e-12);
    }
}

void TestSplineBehaviours::theKeysThemselvesBelongToTheInside()
{
    for (int behaviour = 0; behaviour < 5; ++behaviour) {
        SplineBase spline;
        fill(spline);
        setBoth(spline, static_cast<SplineBase::nodeType>(behaviour));
        QCOMPARE(spline(firstTime), firstValue);
        QCOMPARE(spline(lastTime), lastValue);
    }
}

void TestSplineBehaviours::loopsWithOffsetGoOnWithoutAGap()
{
    SplineBase spline;
    fill(spline);
    setBoth(spline, SplineBase::loopOffset);
    for (int round = -5; round <= 5; ++round) {
        const double seam = firstTime + round * (lastTime - firstTime);
        const double value = firstValue + round * (lastValue - firstValue);
        QVERIFY(std::abs(spline(seam) - value) < 1e-12);
        QVERIFY(std::abs(spline(seam - 1e-9) - value) < 1e-6);
    }
}

void TestSplineBehaviours::aNumberThatIsNoBehaviourCountsAsConstant()
{
    for (const int number : {-1, 5, std::numeric_limits<int>::min()}) {
        SplineBase spline;
        fill(spline);
        setBoth(spline, static_cast<SplineBase::nodeType>(number));
        QCOMPARE(spline(-50.0), firstValue);
        QCOMPARE(spline(50.0), lastValue);
    }
}

void TestSplineBehaviours::aPeriodOfZeroIsConstant()
{
    for (const auto behaviour : {SplineBase::loop, SplineBase::loopOffset}) {
        SplineBase spline;
        put(spline, makeKey(1.0, 7.0));
        setBoth(spline, behaviour);
        QCOMPARE(spline(-3.0), 7.0);
        QCOMPARE(spline(3.0), 7.0);
        put(spline, makeKey(1.0, 9.0));
        QCOMPARE(spline(-3.0), 7.0);
        QCOMPARE(spline(3.0), 9.0);
    }
}

void TestSplineBehaviours::followTangentOfAStraightSegmentTakesItsSlope()
{
    for (const auto type : {zk_spline::linear, zk_spline::bezier}) {
        SplineBase spline;
        PointInfo key = makeKey(0.0, 0.0, type);
        key.bezier = {50.0, 50.0};
        put(spline, key);
        // The second key is straight, so the segment is, whatever the first one is.
        put(spline, makeKey(2.0, 6.0));
        setBoth(spline, SplineBase::followTangent);
        QCOMPARE(spline(3.0), 9.0);
        QCOMPARE(spline(-1.0), -3.0);
    }
}

void TestSplineBehaviours::followTangentOfASteppedSegmentStaysLevel()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 1.0, zk_spline::stepped));
    put(spline, makeKey(2.0, 6.0, zk_spline::tcb));
    setBoth(spline, SplineBase::followTangent);
    QCOMPARE(spline(3.0), 6.0);
    QCOMPARE(spline(-1.0), 1.0);
    QCOMPARE(spline(infinity), 6.0);
    QCOMPARE(spline(-infinity), 1.0);
}

void TestSplineBehaviours::followTangentOfATcbEndTakesItsTangent()
{
    SplineBase spline;
    spline.addPoint(0.0, 0.0);
    spline.addPoint(1.0, 5.0);
    spline.addPoint(3.0, 6.0);
    setBoth(spline, SplineBase::followTangent);
    QCOMPARE(spline(5.0), 7.0);
    QCOMPARE(spline(-1.0), -5.0);
    spline.setTcb(2U, {1.0, 0.0, 0.0, 0.0, 0.0});
    QCOMPARE(spline(5.0), 6.0);
}

void TestSplineBehaviours::followTangentOfASingleKey_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("slopeBefore");
    QTest::addColumn<double>("slopeAfter");
    QTest::newRow("linear") << 0 << 0.0 << 0.0;
    QTest::newRow("bezier goes on with its left tangent") << 1 << 3.0 << 2.0;
    QTest::newRow("tcb") << 2 << 0.0 << 0.0;
    QTest::newRow("stepped") << 3 << 0.0 << 0.0;
}

void TestSplineBehaviours::followTangentOfASingleKey()
{
    QFETCH(int, type);
    QFETCH(double, slopeBefore);
    QFETCH(double, slopeAfter);
    SplineBase spline;
    PointInfo key = makeKey(1.0, 10.0, static_cast<zk_spline::interpolationType>(type));
    key.bezier = {2.0, 3.0};
    put(spline, key);
    setBoth(spline, SplineBase::followTangent);
    QCOMPARE(spline(2.0), 10.0 + slopeAfter);
    QCOMPARE(spline(0.0), 10.0 - slopeBefore);
}

void TestSplineBehaviours::farTimesReturn_data()
{
    QTest::addColumn<int>("behaviour");
    for (int behaviour = 0; behaviour < 5; ++behaviour) {
        QTest::newRow(behaviourNames[behaviour]) << behaviour;
    }
}

void TestSplineBehaviours::farTimesReturn()
{
    QFETCH(int, behaviour);
    SplineBase spline;
    fill(spline);
    setBoth(spline, static_cast<SplineBase::nodeType>(behaviour));
    for (const double time : {1e300, -1e300, 1e17, -1e17}) {
        QVERIFY(std::isfinite(spline(time)));
    }
    // A tangent followed that far may leave the range of numbers, which is no error.
    for (const double time : {1.7e308, -1.7e308, infinity, -infinity}) {
        QVERIFY(!std::isnan(spline(time)));
    }
    QVERIFY(std::isnan(spline(notANumber)));
}

void TestSplineBehaviours::loopsFarAwayStillRepeat()
{
    SplineBase spline;
    for (const double time : {0.0, 1.0, 4.0}) {
        put(spline, makeKey(time, time * time));
    }
    setBoth(spline, SplineBase::loop);
    QCOMPARE(spline(4.0e9 + 0.5), spline(0.5));
    QCOMPARE(spline(-4.0e9 + 2.5), spline(2.5));
    QVERIFY(spline(1e300) >= 0.0 && spline(1e300) <= 16.0);
}

void TestSplineBehaviours::countlessRoundsOfNoRiseAreNoRise()
{
    SplineBase spline;
    for (const double time : {0.0, 1e-10}) {
        put(spline, makeKey(time, 5.0));
    }
    setBoth(spline, SplineBase::loopOffset);
    // The number of rounds is beyond all numbers.
    QCOMPARE(spline(1e300), 5.0);
    QCOMPARE(spline(-1e300), 5.0);
}

void TestSplineBehaviours::anExpressionIsAddedAtItsMoment()
{
    ParseMessage message;
    const std::unique_ptr<FunctionFloatBase> expression(
        FunctionParserBase::instance()->parseString("t*1000+f*10+fps/100", message, false));
    QVERIFY(expression != nullptr);
    SplineBase spline;
    put(spline, makeKey(0.0, 0.5));
    QCOMPARE(spline(2.0, expression.get(), 25.0), 0.5 + 2000.0 + 500.0 + 0.25);
}

void TestSplineBehaviours::withoutAnExpressionTheSplineStandsAlone()
{
    SplineBase spline;
    fill(spline);
    QCOMPARE(spline(2.5, nullptr, 25.0), spline(2.5));
}

void TestSplineBehaviours::theVariablesAreRestoredAfterAnEvaluation()
{
    FunctionParserBase* const parser = FunctionParserBase::instance();
    ParseMessage message;
    const std::unique_ptr<FunctionFloatBase> variables(
        parser->parseString("t+f*1000+fps*1000000", message, false));
    QVERIFY(variables != nullptr);
    const double before = variables->value();
    SplineBase spline;
    spline.setDefaultValue(1.0);
    QCOMPARE(spline(3.0, variables.get(), 2.0), 1.0 + 3.0 + 6000.0 + 2000000.0);
    QCOMPARE(variables->value(), before);
}

QTEST_APPLESS_MAIN(TestSplineBehaviours)
#include "test_spline_behaviours.moc"
