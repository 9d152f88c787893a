#include "curves/ManyCurves.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"
#include "support/ParserKeys.h"

#include <QTest>

#include <cmath>
#include <random>
#include <stdexcept>

namespace {

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

/// Curves, some of them in rings, that are read through more curves than the stack would bear.
class TestDeepCurves : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

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

void TestDeepCurves::fromTheEndOfALongChainARingHasTheSameValues()
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

void TestDeepCurves::anyCurvesHaveTheSameValuesInAnyOrderAndDepth_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {2, 3, 5, 8, 20}) {
        QTest::addRow("%d curves", count) << count;
    }
}

void TestDeepCurves::anyCurvesHaveTheSameValuesInAnyOrderAndDepth()
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

void TestDeepCurves::aSumOfManyCurvesAtTheEndOfALongChainTakesNoTime()
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

void TestDeepCurves::aChainAtATimeThatIsNotANumberEnds()
{
    Curves curves;
    const int chain = 3000;
    addCurves(curves, chain);
    for (int i = 0; i < chain; ++i) {
        curves[std::size_t(i)].setExpression(i + 1 < chain ? nameOf(i + 1) + "+1" : "2");
    }
    QCOMPARE(valueOf("n.c0", std::nan("")), chain + 1.0);
}

void TestDeepCurves::aLongChainThroughVariablesOfTheHostEnds()
{
    Curves curves;
    const int count = 2000;
    addCurves(curves, count);
    std::deque<RefreshedVariable> hosts;
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

void TestDeepCurves::aHostsVariableAtTheEndOfALongChainIsRefreshed()
{
    const RefreshedVariable host("host.v", [&](double& value) { value += 1.0; });
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

void TestDeepCurves::whatIsThrownLeavesEveryCurveAsItWas_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {1, 2, 49, 50, 51, 300}) {
        QTest::addRow("chain of %d", length) << length;
    }
}

void TestDeepCurves::whatIsThrownLeavesEveryCurveAsItWas()
{
    QFETCH(int, length);
    bool throws = true;
    const RefreshedVariable host("host.v", [&](double& value) {
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

QTEST_GUILESS_MAIN(TestDeepCurves)
#include "test_deep_curves.moc"
