#include "curves/CurveWithVariable.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"
#include "support/ParserKeys.h"

#include <QTest>

#include <deque>
#include <functional>
#include <random>
#include <stdexcept>

namespace {

using Curves = std::deque<CurveWithVariable>;

std::string nameOf(const int& number)
{
    return "n.c" + std::to_string(number);
}

void addCurves(Curves& curves, const int& count)
{
    while (curves.size() < static_cast<std::size_t>(count)) {
        curves.emplace_back(QString("c%1").arg(curves.size()));
    }
}

/// A host's variable with a refresh function, for as long as it lives.
class Refreshed
{
public:
    Refreshed(std::string variableName, std::function<void(double&)> work)
        : name(std::move(variableName))
    {
        FunctionParserBase::instance()->registerKey(name, 3, &value, [this, work] { work(value); });
    }
    ~Refreshed() { FunctionParserBase::instance()->unregisterKey(name, &value); }
    Refreshed(const Refreshed&) = delete;
    Refreshed& operator=(const Refreshed&) = delete;

    double value = 0.0;

private:
    std::string name;
};

/// Expressions of curves that read one another at random, some only where another one is high.
std::string randomText(std::mt19937& random, const int& count)
{
    std::uniform_int_distribution<int> curve(0, count - 1);
    const auto name = [&] { return nameOf(curve(random)); };
    switch (random() % 6) {
    case 0:
        return name() + "*0.5+t";
    case 1:
        return name() + "-" + name() + "*0.25+1";
    case 2:
        return "if(" + name() + ">1," + name() + "," + name() + "+2)";
    case 3:
        return "min(" + name() + "," + name() + ")+" + name() + "/3";
    case 4:
        return "if(t>2," + name() + ",3)";
    default:
        return "f/10+2";
    }
}

} // namespace

/// Curves that depend on each other: the mention that closes the ring reads 0.
class TestCurveRings : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theSameTimeGivesTheSameValueAtEachEvaluation();
    void eachCurveOfARingHasItsValueWhateverWasAskedBefore();
    void aCurveThatMentionsItselfReadsZeroThere();
    void anEditOfOneCurveShowsInTheWholeRing();
    void aMentionThatIsNotReachedClosesNothing();
    void aCurveOutsideOfARingIsWorkedOutOnce();
    void ringsAboveRingsAreWorkedOutInNoTime();
    void aRingThroughAHostsVariableGivesTheSame();
    void aTimeThatIsNotANumberEndsToo();

    void fromTheEndOfALongChainARingHasTheSameValues();
    void anyCurvesHaveTheSameValuesInAnyOrderAndDepth_data();
    void anyCurvesHaveTheSameValuesInAnyOrderAndDepth();
    void aSumOfManyCurvesAtTheEndOfALongChainTakesNoTime();
    void aChainAtATimeThatIsNotANumberEnds();
    void aLongChainThroughVariablesOfTheHostEnds();
    void aHostsVariableAtTheEndOfALongChainIsRefreshed();

    void whatIsThrownLeavesEveryCurveAsItWas_data();
    void whatIsThrownLeavesEveryCurveAsItWas();
};

void TestCurveRings::theSameTimeGivesTheSameValueAtEachEvaluation()
{
    Curves curves;
    addCurves(curves, 3);
    curves[0].setExpression("n.c1+1");
    curves[1].setExpression("n.c2*10+t");
    curves[2].setExpression("n.c0+5");
    for (int round = 0; round < 5; ++round) {
        QCOMPARE(valueOf("n.c0", 2.0), 53.0);
        QCOMPARE(valueOf("n.c0", 3.0), 54.0);
        QCOMPARE(valueOf("n.c1", 2.0), 62.0);
        QCOMPARE(valueOf("n.c2", 2.0), 8.0);
    }
}

void TestCurveRings::eachCurveOfARingHasItsValueWhateverWasAskedBefore()
{
    Curves curves;
    addCurves(curves, 2);
    curves[0].setExpression("n.c1+1");
    curves[1].setExpression("n.c0*10");
    // Alone 1 and 10.
    QCOMPARE(valueOf("n.c0", 0.0), 1.0);
    QCOMPARE(valueOf("n.c1", 0.0), 10.0);
    QCOMPARE(valueOf("n.c0+100*n.c1", 0.0), 1001.0);
    QCOMPARE(valueOf("n.c1*100+n.c0", 0.0), 1001.0);
    QCOMPARE(valueOf("n.c1*100+n.c0+n.c1*100+n.c0", 0.0), 2002.0);
}

void TestCurveRings::aCurveThatMentionsItselfReadsZeroThere()
{
    Curves curves;
    addCurves(curves, 1);
    curves[0].setExpression("n.c0+1");
    QCOMPARE(valueOf("n.c0", 0.0), 1.0);
    QCOMPARE(valueOf("n.c0+n.c0", 0.0), 2.0);
    curves[0].spline.addPoint(0.0, 5.0);
    curves[0].spline.setAddFunc(true);
    QCOMPARE(valueOf("n.c0", 0.0), 6.0);
    curves[0].record.minValue = 7.0f; // the mention reads 0 all the same
    QCOMPARE(valueOf("n.c0", 0.0), 7.0);
}

void TestCurveRings::anEditOfOneCurveShowsInTheWholeRing()
{
    Curves curves;
    addCurves(curves, 2);
    curves[0].setExpression("n.c1+1");
    curves[1].setExpression("n.c0+10");
    QCOMPARE(valueOf("n.c0", 0.0), 11.0);
    curves[1].setExpression("n.c0+20");
    QCOMPARE(valueOf("n.c0", 0.0), 21.0);
    curves[1].setExpression("30");
    QCOMPARE(valueOf("n.c0", 0.0), 31.0);
}

void TestCurveRings::aMentionThatIsNotReachedClosesNothing()
{
    Curves curves;
    addCurves(curves, 2);
    curves[0].setExpression("if(t<5,2,n.c1)");
    curves[1].setExpression("n.c0+1");
    QCOMPARE(valueOf("n.c0", 1.0), 2.0);
    QCOMPARE(valueOf("n.c1", 1.0), 3.0);
    QCOMPARE(valueOf("n.c0+n.c1", 1.0), 5.0);
    QCOMPARE(valueOf("n.c0", 9.0), 1.0);
    QCOMPARE(valueOf("n.c1", 9.0), 1.0);
}

void TestCurveRings::aCurveOutsideOfARingIsWorkedOutOnce()
{
    int evaluations = 0;
    const Refreshed counter("counter", [&](double&) { ++evaluations; });
    Curves curves;
    addCurves(curves, 4);
    curves[0].setExpression("n.c1+n.c3");
    curves[1].setExpression("n.c0+n.c3");
    curves[2].setExpression("n.c0+n.c3");
    curves[3].setExpression("counter+1");
    QCOMPARE(valueOf("n.c2+n.c0+n.c1+n.c2", 0.0), 3.0 + 2.0 + 2.0 + 3.0);
    QCOMPARE(evaluations, 1);
}

void TestCurveRings::ringsAboveRingsAreWorkedOutInNoTime()
{
    Curves curves;
    const int rings = 200;
    addCurves(curves, 2 * rings);
    for (int i = 0; i < rings; ++i) {
        const std::string below =
            i > 0 ? nameOf(2 * i - 2) + "/2+" + nameOf(2 * i - 1) + "/2" : "1";
        curves[std::size_t(2 * i)].setExpression(nameOf(2 * i + 1) + "/4+" + below);
        curves[std::size_t(2 * i + 1)].setExpression(nameOf(2 * i) + "/4+" + below);
    }
    const double value = valueOf(nameOf(2 * rings - 1), 0.0);
    QVERIFY(value > 1.0);
    QCOMPARE(valueOf(nameOf(2 * rings - 1), 0.0), value);
}

void TestCurveRings::aRingThroughAHostsVariableGivesTheSame()
{
    Curves curves;
    addCurves(curves, 1);
    std::unique_ptr<ParsedExpression> read;
    const Refreshed host("host.v", [&](double& value) { value = read->tree->value() + 1.0; });
    read = std::make_unique<ParsedExpression>("n.c0");
    curves[0].setExpression("host.v*10");
    for (int round = 0; round < 3; ++round) {
        QCOMPARE(valueOf("n.c0", 0.0), 10.0);
    }
}

void TestCurveRings::aTimeThatIsNotANumberEndsToo()
{
    Curves curves;
    addCurves(curves, 2);
    curves[0].setExpression("n.c1+1");
    curves[1].setExpression("n.c0+10");
    QCOMPARE(valueOf("n.c0", std::nan("")), 11.0);
}

void TestCurveRings::fromTheEndOfALongChainARingHasTheSameValues()
{
    Curves curves;
    const int chain = 100;
    addCurves(curves, chain + 4);
    for (int i = 0; i < chain; ++i) {
        curves[std::size_t(i)].setExpression(nameOf(i + 1));
    }
    // The second mention goes round only while the first is low.
    curves[chain].setExpression("n.c101+1");
    curves[chain + 1].setExpression("if(n.c102<100,n.c100*2+n.c103,7)");
    curves[chain + 2].setExpression("n.c100+n.c101+3");
    curves[chain + 3].setExpression("n.c101+n.c103+2");
    for (int i = 0; i < 4; ++i) {
        curves[chain - 1].setExpression(nameOf(chain + i));
        const double alone = valueOf(nameOf(chain + i), 0.0);
        QCOMPARE(valueOf("n.c0", 0.0), alone);
        QCOMPARE(valueOf("n.c0-" + nameOf(chain + i), 0.0), 0.0);
    }
}

void TestCurveRings::anyCurvesHaveTheSameValuesInAnyOrderAndDepth_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {2, 3, 5, 8, 20}) {
        QTest::addRow("%d curves", count) << count;
    }
}

void TestCurveRings::anyCurvesHaveTheSameValuesInAnyOrderAndDepth()
{
    QFETCH(int, count);
    const int chain = 60;
    Curves curves;
    addCurves(curves, count + chain);
    for (int i = 0; i < chain; ++i) {
        curves[std::size_t(count + i)].setExpression(i > 0 ? nameOf(count + i - 1) : "0");
    }
    std::mt19937 random(static_cast<unsigned>(count));
    for (int round = 0; round < 60; ++round) {
        for (int i = 0; i < count; ++i) {
            curves[std::size_t(i)].setExpression(randomText(random, count));
        }
        std::vector<double> alone;
        for (int i = 0; i < count; ++i) {
            alone.push_back(valueOf(nameOf(i), 3.0));
        }
        const EvaluationTime together(3.0, 10.0);
        for (int i = 0; i < 3 * count; ++i) {
            const int asked = static_cast<int>(random() % static_cast<unsigned>(count));
            const double expected = alone[std::size_t(asked)];
            QCOMPARE(ParsedExpression(nameOf(asked)).tree->value(), expected);
            curves[std::size_t(count)].setExpression(nameOf(asked));
            const EvaluationTime other(2.0, 10.0); // so that the chain is not known any more
            const EvaluationTime deep(3.0, 10.0);
            QCOMPARE(ParsedExpression(nameOf(count + chain - 1)).tree->value(), expected);
            QCOMPARE(ParsedExpression(nameOf(asked)).tree->value(), expected);
        }
    }
}

void TestCurveRings::aSumOfManyCurvesAtTheEndOfALongChainTakesNoTime()
{
    Curves curves;
    const int chain = 100;
    const int summands = 5000;
    addCurves(curves, chain + summands);
    std::string sum = "0";
    for (int i = 0; i < summands; ++i) {
        curves[std::size_t(chain + i)].setExpression("t+1");
        sum += "+" + nameOf(chain + i);
    }
    for (int i = 0; i < chain; ++i) {
        curves[std::size_t(i)].setExpression(i + 1 < chain ? nameOf(i + 1) : sum);
    }
    QCOMPARE(valueOf("n.c0", 2.0), 3.0 * summands);
}

void TestCurveRings::aChainAtATimeThatIsNotANumberEnds()
{
    Curves curves;
    const int chain = 3000;
    addCurves(curves, chain);
    for (int i = 0; i < chain; ++i) {
        curves[std::size_t(i)].setExpression(i + 1 < chain ? nameOf(i + 1) + "+1" : "2");
    }
    QCOMPARE(valueOf("n.c0", std::nan("")), chain + 1.0);
}

void TestCurveRings::aLongChainThroughVariablesOfTheHostEnds()
{
    Curves curves;
    const int count = 2000;
    addCurves(curves, count);
    std::deque<Refreshed> hosts;
    std::deque<ParsedExpression> reads;
    for (int i = 0; i < count; ++i) {
        reads.emplace_back(nameOf(i));
        const FunctionFloatBase* read = reads.back().tree.get();
        hosts.emplace_back("host.v" + std::to_string(i),
                           [read](double& value) { value = read->value(); });
    }
    for (int i = 0; i < count; ++i) {
        curves[std::size_t(i)].setExpression(i + 1 < count ? "host.v" + std::to_string(i + 1) + "+1"
                                                           : "t");
    }
    const double first = valueOf("n.c0", 2.0);
    QVERIFY(first >= FunctionParserBase::deepestRefresh);
    QCOMPARE(valueOf(nameOf(count - 10), 2.0), 11.0);
}

void TestCurveRings::aHostsVariableAtTheEndOfALongChainIsRefreshed()
{
    const Refreshed host("host.v", [&](double& value) { value += 1.0; });
    Curves curves;
    const int chain = 1000;
    addCurves(curves, chain);
    for (int i = 0; i < chain; ++i) {
        curves[std::size_t(i)].setExpression(i + 1 < chain ? nameOf(i + 1) : "host.v");
    }
    const double first = valueOf("n.c0", 0.0);
    QVERIFY(first > 0.0);
    QVERIFY(valueOf("n.c0", 0.0) > first);
}

void TestCurveRings::whatIsThrownLeavesEveryCurveAsItWas_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {1, 2, 49, 50, 51, 300}) {
        QTest::addRow("chain of %d", length) << length;
    }
}

void TestCurveRings::whatIsThrownLeavesEveryCurveAsItWas()
{
    QFETCH(int, length);
    bool throws = true;
    const Refreshed host("host.v", [&](double& value) {
        value = 7.0;
        if (throws) {
            throw std::runtime_error("the host's");
        }
    });
    Curves curves;
    addCurves(curves, length);
    for (int i = 0; i < length; ++i) {
        curves[std::size_t(i)].setExpression(i + 1 < length ? nameOf(i + 1) + "+t" : "host.v+n.c0");
    }
    writeKey("t", 5.0);
    writeKey("f", 6.0);
    writeKey("fps", 8.0);
    for (int round = 0; round < 200; ++round) {
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, valueOf("n.c0", 2.0));
        QCOMPARE(keyValue("t"), 5.0);
        QCOMPARE(keyValue("f"), 6.0);
        QCOMPARE(keyValue("fps"), 8.0);
        QCOMPARE(EvaluationTime::epoch(), 0ULL);
    }
    throws = false;
    QCOMPARE(valueOf("n.c0", 2.0), 7.0 + 2.0 * (length - 1));
    QCOMPARE(valueOf(nameOf(length - 1), 2.0), 7.0 + (length > 1 ? 2.0 * (length - 1) : 0.0));
    writeKey("fps", 10.0);
}

QTEST_GUILESS_MAIN(TestCurveRings)
#include "test_curve_rings.moc"
