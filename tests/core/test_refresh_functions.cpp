#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"
#include "support/ParserKeys.h"
#include "support/ParserVariable.h"
#include "support/RefreshedVariable.h"

#include "core/EvaluationTime.h"
#include "core/SplineBase.h"

#include <QTest>

#include <deque>
#include <stdexcept>

namespace {

/// Variables "link.n0" to the last, each one more than the next; the last is 1.
class Chain
{
public:
    explicit Chain(const int& count, const QString& pattern = "%1+1")
    {
        for (int i = count - 1; i >= 0; --i) {
            const QString text = i + 1 < count ? pattern.arg(nameOf(i + 1)) : QString("1");
            expressions.emplace_back(text.toStdString());
            const FunctionFloatBase* expression = expressions.back().tree.get();
            links.emplace_back(nameOf(i).toStdString(),
                               [expression](double& read) { read = expression->value(); });
        }
    }

    static QString nameOf(const int& number) { return QString("link.n%1").arg(number); }

    double read(const int& number) const
    {
        return ParsedExpression(nameOf(number).toStdString()).tree->value();
    }

private:
    std::deque<ParsedExpression> expressions;
    std::deque<RefreshedVariable> links;
};

} // namespace

class TestRefreshFunctions : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void whatIsThrownLeavesTheVariableAlive();
    void whatIsThrownLeavesTimeFrameAndRateAsTheyWere();
    void whatIsThrownAgainAndAgainLeavesTheNestingAsItWas();
    void aChainOfFiftyIsRefreshedToItsEnd();
    void beyondFiftyAVariableIsReadAsItStands();
    void aChainOfTwentyThousandEnds();
    void aChainOfDeepExpressionsEnds();
    void aGuardedFunctionIsCalledFromInsideOfItself();
    void aGuardedFunctionIsCalledHoweverDeep();
};

void TestRefreshFunctions::whatIsThrownLeavesTheVariableAlive()
{
    int calls = 0;
    const RefreshedVariable variable("moody.v", [&](double& value) {
        if (++calls < 3) {
            throw std::runtime_error("the host's");
        }
        value = calls;
    });
    const ParsedExpression parsed("moody.v*2");
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, parsed.tree->value());
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, parsed.tree->value());
    QCOMPARE(parsed.tree->value(), 6.0);
    QCOMPARE(parsed.tree->value(), 8.0);
}

void TestRefreshFunctions::whatIsThrownLeavesTimeFrameAndRateAsTheyWere()
{
    const RefreshedVariable variable("moody.v", [](double&) {
        const EvaluationTime earlier(1.0, 50.0);
        throw std::runtime_error("the host's");
    });
    writeKey("t", 5.0);
    writeKey("f", 6.0);
    writeKey("fps", 8.0);
    SplineBase spline;
    const ParsedExpression parsed("moody.v+t");
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, spline(2.0, parsed.tree.get(), 24.0));
    QCOMPARE(keyValue("t"), 5.0);
    QCOMPARE(keyValue("f"), 6.0);
    QCOMPARE(keyValue("fps"), 8.0);
    QCOMPARE(EvaluationTime::epoch(), 0ULL);
}

void TestRefreshFunctions::whatIsThrownAgainAndAgainLeavesTheNestingAsItWas()
{
    const Chain chain(20);
    bool throws = true;
    const ParsedExpression further("link.n0");
    const RefreshedVariable variable("moody.v", [&](double& value) {
        value = further.tree->value();
        if (throws) {
            throw std::runtime_error("the host's");
        }
    });
    const ParsedExpression parsed("moody.v");
    for (int i = 0; i < 1000; ++i) {
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, parsed.tree->value());
    }
    throws = false;
    QCOMPARE(parsed.tree->value(), 20.0);
}

void TestRefreshFunctions::aChainOfFiftyIsRefreshedToItsEnd()
{
    const Chain chain(FunctionParserBase::deepestRefresh);
    QCOMPARE(chain.read(0), double(FunctionParserBase::deepestRefresh));
}

void TestRefreshFunctions::beyondFiftyAVariableIsReadAsItStands()
{
    const int deepest = FunctionParserBase::deepestRefresh;
    const Chain chain(deepest + 10);
    QCOMPARE(chain.read(0), double(deepest)); // of the one beyond nothing is known yet
    QCOMPARE(chain.read(0), double(deepest));
    QCOMPARE(chain.read(deepest), 10.0);
    QCOMPARE(chain.read(0), deepest + 10.0);
}

void TestRefreshFunctions::aChainOfTwentyThousandEnds()
{
    const int count = 20000;
    const Chain chain(count);
    QVERIFY(chain.read(0) >= FunctionParserBase::deepestRefresh);
    // From its end the whole chain can be brought up to date.
    for (int i = count - 1; i >= 0; i -= FunctionParserBase::deepestRefresh - 1) {
        chain.read(i);
    }
    QCOMPARE(chain.read(0), double(count));
}

void TestRefreshFunctions::aChainOfDeepExpressionsEnds()
{
    const int depth = 250;
    const Chain chain(5000,
                      QString("abs(").repeated(depth) + "%1+1" + QString(")").repeated(depth));
    QVERIFY(chain.read(0) >= FunctionParserBase::deepestRefresh);
}

void TestRefreshFunctions::aGuardedFunctionIsCalledFromInsideOfItself()
{
    double value = 0.0;
    int depth = 0;
    std::unique_ptr<ParsedExpression> own;
    parser()->registerGuardedKey("guarded.v", 3, &value, [&] {
        if (depth < 5) {
            ++depth;
            own->tree->value();
            value += 1.0;
        }
    });
    own = std::make_unique<ParsedExpression>("guarded.v");
    QCOMPARE(own->tree->value(), 5.0);
    parser()->unregisterKey("guarded.v", &value);
}

void TestRefreshFunctions::aGuardedFunctionIsCalledHoweverDeep()
{
    double value = 0.0;
    parser()->registerGuardedKey("link.n50", 3, &value, [&] { value += 1.0; });
    std::deque<ParsedExpression> expressions;
    std::deque<RefreshedVariable> links;
    for (int i = 49; i >= 0; --i) {
        expressions.emplace_back(Chain::nameOf(i + 1).toStdString());
        const FunctionFloatBase* expression = expressions.back().tree.get();
        links.emplace_back(Chain::nameOf(i).toStdString(),
                           [expression](double& read) { read = expression->value(); });
    }
    const ParsedExpression first("link.n0");
    QCOMPARE(first.tree->value(), 1.0);
    QCOMPARE(first.tree->value(), 2.0);
    parser()->unregisterKey("link.n50", &value);
}

QTEST_APPLESS_MAIN(TestRefreshFunctions)
#include "test_refresh_functions.moc"
