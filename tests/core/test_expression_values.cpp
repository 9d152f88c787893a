#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include "core/EvaluationTime.h"

#include <QTest>

#include <clocale>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// An evaluator of its own for flat text without parentheses: two stacks, one of values and one of
// operators, of which '~' is the minus in front of an operand.
class TwoStacks
{
public:
    void operand(double value) { values.push_back(value); }
    void minus() { signs.push_back('~'); }

    void binary(char sign)
    {
        while (!signs.empty() && (levelOf(signs.back()) > levelOf(sign) ||
                                  (levelOf(signs.back()) == levelOf(sign) && sign != '^'))) {
            apply();
        }
        signs.push_back(sign);
    }

    double result()
    {
        while (!signs.empty()) {
            apply();
        }
        return values.back();
    }

private:
    static int levelOf(char sign)
    {
        const std::string order = "|&=<>+-*/~^";
        const int levels[] = {1, 2, 3, 3, 3, 4, 4, 5, 5, 6, 7};
        return levels[order.find(sign)];
    }

    void apply()
    {
        const char sign = signs.back();
        signs.pop_back();
        const double right = values.back();
        values.pop_back();
        if (sign == '~') {
            values.push_back(-right);
            return;
        }
        const double left = values.back();
        values.pop_back();
        values.push_back(combine(left, sign, right));
    }

    static double combine(double left, char sign, double right)
    {
        switch (sign) {
        case '|':
            return left != 0 || right != 0 ? 1 : 0;
        case '&':
            return left != 0 && right != 0 ? 1 : 0;
        case '=':
            return left == right ? 1 : 0;
        case '<':
            return left < right ? 1 : 0;
        case '>':
            return left > right ? 1 : 0;
        case '+':
            return left + right;
        case '-':
            return left - right;
        case '*':
            return left * right;
        case '/':
            return left / right;
        default:
            return std::pow(left, right);
        }
    }

    std::vector<double> values;
    std::vector<char> signs;
};

bool agrees(double actual, double expected)
{
    if (std::isnan(expected)) {
        return std::isnan(actual);
    }
    return actual == expected || std::fabs(actual - expected) <= 1e-12 * std::fabs(expected);
}

double valueOf(const char* text)
{
    const ParsedExpression parsed(text);
    return parsed.tree ? parsed.tree->value() : notANumber;
}

} // namespace

class TestExpressionValues : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aChainOfAnyLengthGroupsToTheLeft()
    {
        std::string text = "7";
        double value = 7.0;
        for (int i = 1; i <= 100; ++i) {
            const double number = i % 9 + 1;
            const char sign = "-/+*<"[i % 5];
            text = "(" + text + ")" + sign + std::to_string(i % 9 + 1);
            value = sign == '-'   ? value - number
                    : sign == '/' ? value / number
                    : sign == '+' ? value + number
                    : sign == '*' ? value * number
                                  : (value < number ? 1.0 : 0.0);
            const ParsedExpression parsed(text);
            QVERIFY2(parsed.tree, text.c_str());
            QVERIFY2(parsed.tree->value() == value, text.c_str());
        }
    }

    void everyWordOfTheLanguageHasItsValue_data();
    void everyWordOfTheLanguageHasItsValue();
    void everyTextThatTheMenusBuildParses_data();
    void everyTextThatTheMenusBuildParses();
    void flatTextAgreesWithAnIndependentEvaluator();
    void onlyTheBranchTakenIsEvaluated();
    void randomNumbersRepeatAndStayBelowOne();
    void besselFunctionsTakeAnyArgument();
    void aCommaLocaleDoesNotReachNumbers();
    void writingAVariableChangesTheValueWithoutParsingAgain();
};

void TestExpressionValues::everyWordOfTheLanguageHasItsValue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    const auto row = [](const char* text, double expected) {
        QTest::newRow(text) << QString::fromLatin1(text) << expected;
    };
    // At t = 2, f = 48, fps = 24.
    row("t", 2);
    row("f", 48);
    row("fps", 24);
    row("T", 2);
    row("FPS", 24);
    row("PI", 3.141592653589793);
    row("e", 2.718281828459045);
    row("EPSILON", 2.220446049250313e-16);
    row("1", 1);
    row(".5", 0.5);
    row("1.", 1);
    row("1e-3", 0.001);
    row("1E3", 1000);
    row("1e+3", 1000);
    row("0.1", 0.1);
    row("cos(t)", -0.4161468365471424);
    row("sin(t)", 0.9092974268256817);
    row("tan(t)", -2.185039863261519);
    row("exp(t)", 7.38905609893065);
    row("log(t)", 0.6931471805599453);
    row("log10(100)", 2);
    row("abs(-3.5)", 3.5);
    row("sqrt(9)", 3);
    row("acos(0)", 1.5707963267948966);
    row("asin(1)", 1.5707963267948966);
    row("atan(1)", 0.7853981633974483);
    row("cosh(1)", 1.5430806348152437);
    row("sinh(1)", 1.1752011936438014);
    row("tanh(1)", 0.7615941559557649);
    row("ceil(1.2)", 2);
    row("floor(-1.2)", -2);
    row("j0(1)", 0.7651976865579666);
    row("logj1(1)", -0.8208655910759768);
    row("logj1(-1)", -0.8208655910759768);
    row("not(0)", 1);
    row("not(3)", 0);
    row("min(2,-1)", -1);
    row("max(2,-1)", 2);
    row("if(1,2,3)", 2);
    row("if(0,2,3)", 3);
    row("if(-.5,2,3)", 2);
    row("if(0/0,2,3)", 2);
    row("1+2", 3);
    row("1-2", -1);
    row("3*4", 12);
    row("1/4", 0.25);
    row("2^10", 1024);
    row("2>1", 1);
    row("1>2", 0);
    row("1<2", 1);
    row("2<1", 0);
    row("1=1", 1);
    row("1=1.0000000000000002", 0);
    row("2&3", 1);
    row("2&0", 0);
    row("2&&3", 1);
    row("0|3", 1);
    row("0|0", 0);
    row("-2^2", -4);
    row("(-2)^2", 4);
    row("2^-1", 0.5);
    row("2^-1^2", 0.5);
    row("2^3^2", 512);
    row("-2*-3", 6);
    row("- -2", 2);
    row("+ - +2", -2);
    row("10-4-3", 3);
    row("24/4/3", 2);
    row("1+2*3", 7);
    row("(1+2)*3", 9);
    row("1<2<3", 1);
    row("3>2>1", 0);
    row("3>2=1", 1);
    row("1|0&0", 1);
    row("0&1=0", 0);
    row("1=0+1", 1);
    row("1/0", infinity);
    row("-1/0", -infinity);
    row("0/0", notANumber);
    row("sqrt(-1)", notANumber);
    row("log(0)", -infinity);
    row("min(0/0,1)", notANumber);
    row("max(1,0/0)", notANumber);
    row(" \t1\n +\r2 ", 3);
    row("sin (0)", 0);
}

void TestExpressionValues::everyWordOfTheLanguageHasItsValue()
{
    QFETCH(QString, text);
    QFETCH(double, expected);
    const EvaluationTime moment(2.0, 24.0);
    const ParsedExpression parsed(text.toStdString());
    QCOMPARE(parsed.message.errorKind, 0);
    QVERIFY(parsed.tree);
    const double value = parsed.tree->value();
    QVERIFY2(agrees(value, expected), qPrintable(QString::number(value, 'g', 17)));
}

void TestExpressionValues::everyTextThatTheMenusBuildParses_data()
{
    QTest::addColumn<QString>("text");
    for (const char* name :
         {"cos",  "sin",  "tan",  "exp",  "log",  "log10", "rnd",   "abs", "sqrt",  "acos",
          "asin", "atan", "cosh", "sinh", "tanh", "ceil",  "floor", "j0",  "logj1", "not"}) {
        QTest::newRow(name) << QStringLiteral(" %1(t) ").arg(QLatin1String(name));
    }
    for (const char* sign : {"+", "-", "*", "/", "^", ">", "<", "&", "&&", "|", "="}) {
        QTest::newRow(sign) << QStringLiteral(" t%1f ").arg(QLatin1String(sign));
    }
    for (const char* name : {"min", "max"}) {
        QTest::newRow(name) << QStringLiteral(" %1( t, f ) ").arg(QLatin1String(name));
    }
    QTest::newRow("if") << QStringLiteral(" if( f, t, f ) ");
    for (const char* name : {"t", "f", "fps", "PI", "e", "EPSILON"}) {
        QTest::newRow(name) << QStringLiteral(" %1 ").arg(QLatin1String(name));
    }
}

void TestExpressionValues::everyTextThatTheMenusBuildParses()
{
    QFETCH(QString, text);
    const ParsedExpression parsed(text.toStdString());
    QCOMPARE(parsed.message.errorKind, 0);
    QVERIFY(parsed.message.ok);
    QVERIFY(parsed.message.errorSpans.empty());
    QVERIFY(parsed.tree);
}

void TestExpressionValues::flatTextAgreesWithAnIndependentEvaluator()
{
    std::mt19937 random(20240501);
    const std::string signs = "|&=<>+-*/^";
    const char* const operands[] = {"0", "1", "2", "3", ".5", "1.25", "10"};
    const double values[] = {0, 1, 2, 3, 0.5, 1.25, 10};
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        TwoStacks independent;
        const auto count = 1 + random() % 12;
        for (std::size_t i = 0; i < count; ++i) {
            if (i > 0) {
                const char sign = signs[random() % signs.size()];
                independent.binary(sign);
                text += sign;
            }
            if (random() % 4 == 0) {
                independent.minus();
                text += '-';
            }
            const std::size_t which = random() % 7;
            independent.operand(values[which]);
            text += operands[which];
        }
        const ParsedExpression parsed(text);
        QVERIFY2(parsed.tree, text.c_str());
        const double expected = independent.result();
        const double actual = parsed.tree->value();
        QVERIFY2(agrees(actual, expected), text.c_str());
    }
}

void TestExpressionValues::onlyTheBranchTakenIsEvaluated()
{
    FunctionParserBase* parser = FunctionParserBase::instance();
    double value = 5.0;
    int reads = 0;
    parser->registerKey("lazy.key", 3, &value, [&reads] { ++reads; });
    {
        const ParsedExpression skipped("if(0,lazy.key,1)+if(1,1,lazy.key)");
        QCOMPARE(skipped.tree->value(), 2.0);
        QCOMPARE(reads, 0);
        const ParsedExpression taken("if(1,lazy.key,1)");
        QCOMPARE(taken.tree->value(), 5.0);
        QCOMPARE(reads, 1);
    }
    parser->unregisterKey("lazy.key", &value);
}

void TestExpressionValues::randomNumbersRepeatAndStayBelowOne()
{
    const ParsedExpression parsed("rnd(t)");
    double sum = 0.0;
    for (int i = 0; i < 1000; ++i) {
        const EvaluationTime moment(i * 0.01, 24.0);
        const double number = parsed.tree->value();
        QVERIFY(number >= 0.0 && number < 1.0);
        QCOMPARE(parsed.tree->value(), number);
        sum += number;
    }
    QVERIFY(std::fabs(sum / 1000 - 0.5) < 0.05);
    QCOMPARE(valueOf("rnd(0)"), valueOf("rnd(-0)"));
    QCOMPARE(valueOf("rnd(0/0)"), valueOf("rnd(-(0/0))"));
}

void TestExpressionValues::besselFunctionsTakeAnyArgument()
{
    QCOMPARE(valueOf("j0(0)"), 1.0);
    QVERIFY(agrees(valueOf("j0(-1)"), valueOf("j0(1)")));
    QVERIFY(std::fabs(valueOf("j0(2.404825557695773)")) < 1e-12);
    QVERIFY(std::fabs(valueOf("j0(1e300)")) < 1.0);
    QVERIFY(std::fabs(valueOf("j0(-1e300)")) < 1.0);
    QCOMPARE(valueOf("j0(1/0)"), 0.0);
    QVERIFY(std::isnan(valueOf("j0(0/0)")));
    QCOMPARE(valueOf("logj1(0)"), -infinity);
    QVERIFY(std::isnan(valueOf("logj1(0/0)")));
}

void TestExpressionValues::aCommaLocaleDoesNotReachNumbers()
{
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    const char* const names[] = {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "fr_FR.utf8"};
    bool found = false;
    for (const char* name : names) {
        found = found || std::setlocale(LC_NUMERIC, name) != nullptr;
    }
    if (!found) {
        QSKIP("no locale with a comma is installed");
    }
    const double value = valueOf("1.5+.25");
    const std::string text = ParsedExpression("1.5 + 0.25").tree->getString();
    const int kind = ParsedExpression("1,5").message.errorKind;
    std::setlocale(LC_NUMERIC, before.c_str());
    QCOMPARE(value, 1.75);
    QCOMPARE(text, std::string("1.5+0.25"));
    QCOMPARE(kind, 4);
}

void TestExpressionValues::writingAVariableChangesTheValueWithoutParsingAgain()
{
    const ParsedExpression parsed("t*10+f");
    EvaluationTime moment(1.0, 2.0);
    QCOMPARE(parsed.tree->value(), 12.0);
    moment.set(3.0, 2.0);
    QCOMPARE(parsed.tree->value(), 36.0);
}

QTEST_APPLESS_MAIN(TestExpressionValues)
#include "test_expression_values.moc"
