#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QTest>

#include <cctype>
#include <cmath>
#include <random>

namespace {

// Makes random text of the language, with more parentheses, blanks and signs than are needed.
class RandomText
{
public:
    explicit RandomText(unsigned seed)
        : random(seed)
    {}

    std::string make(int depth)
    {
        const auto choice = depth == 0 ? random() % 3 : random() % 12;
        switch (choice) {
        case 0:
            return blank() + number();
        case 1:
            return blank() + pick({"t", "f", "fps", "T", "Fps", "PI", "e", "EPSILON"}) + blank();
        case 2:
            return number();
        case 3:
            return "(" + make(depth - 1) + ")";
        case 4:
            return pick({"-", "+", "- "}) + make(depth - 1);
        case 5:
            return pick({"sin", "cos", "rnd", "not", "j0", "abs", "sqrt"}) + blank() + "(" +
                   make(depth - 1) + ")";
        case 6:
            return pick({"min", "max"}) + "(" + make(depth - 1) + "," + blank() + make(depth - 1) +
                   ")";
        case 7:
            return "if(" + make(depth - 1) + "," + make(depth - 1) + "," + make(depth - 1) + ")";
        default:
            return make(depth - 1) + blank() +
                   pick({"+", "-", "*", "/", "^", "<", ">", "=", "&", "&&", "|"}) + make(depth - 1);
        }
    }

private:
    std::string pick(const std::vector<std::string>& words)
    {
        return words[random() % words.size()];
    }
    std::string blank() { return random() % 3 == 0 ? " " : ""; }

    std::string number()
    {
        return pick({"0", "1", ".5", "2.", "1e-3", "1e300", "123456789", "1e5", "0.1", "1e22",
                     "4.9e-324", "1.7976931348623157e308", "3.141592653589793", "100000",
                     "0.30000000000000004"});
    }

    std::mt19937 random;
};

bool sameValue(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

// Positions of the parentheses that only group: those behind no name.
std::vector<std::pair<std::size_t, std::size_t>> groupsOf(const std::string& text)
{
    std::vector<std::pair<std::size_t, std::size_t>> groups;
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '(') {
            open.push_back(i);
        } else if (text[i] == ')') {
            const std::size_t start = open.back();
            open.pop_back();
            if (start == 0 || !std::isalnum(static_cast<unsigned char>(text[start - 1]))) {
                groups.emplace_back(start, i);
            }
        }
    }
    return groups;
}

} // namespace

class TestExpressionText : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void canonicalTextIsAsExpected_data();
    void canonicalTextIsAsExpected();
    void tenThousandRandomExpressionsReadBackIntoTheSameTree();
    void noParenthesisOfCanonicalTextCanBeLeftOut();
    void aNodeBelowTheRootHasTextOfItsOwn();
    void kindsAnswerForThemselvesOnly();
    void variablesAnswerByTheirKind();
    void copiesOfANodeCarryItsText();
};

void TestExpressionText::canonicalTextIsAsExpected_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("canonical");
    const auto row = [](const char* text, const char* canonical) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(canonical);
    };
    row(" t + f ", "t+f");
    row("T", "t");
    row("((t))", "t");
    row("sin((t))", "sin(t)");
    row("min( t, f )", "min(t,f)");
    row("if( t, 1, 2 )", "if(t,1,2)");
    row("t&&f", "t&f");
    row("+t", "t");
    row("- -t", "--t");
    row("t- -t", "t--t");
    row("t-(-t)", "t--t");
    row("-(2^2)", "-2^2");
    row("(-2)^2", "(-2)^2");
    row("2^(-1)", "2^-1");
    row("2^(-(1^2))", "2^-1^2");
    row("(2^-1)^2", "(2^-1)^2");
    row("2^(3^2)", "2^3^2");
    row("(2^3)^2", "(2^3)^2");
    row("2^sin(t)", "2^sin(t)");
    row("min(1,2)^2", "min(1,2)^2");
    row("-(t*f)", "-(t*f)");
    row("(-t)*f", "-t*f");
    row("t*(-f)", "t*-f");
    row("t-(f-1)", "t-(f-1)");
    row("(t-f)-1", "t-f-1");
    row("t+(f+1)", "t+(f+1)");
    row("(t+f)*1", "(t+f)*1");
    row("t+(f*1)", "t+f*1");
    row("((t+f)*2+1)*3", "((t+f)*2+1)*3");
    row("(t<f)=1", "t<f=1");
    row("t<(f=1)", "t<(f=1)");
    row("(t|f)&1", "(t|f)&1");
    row("t|(f&1)", "t|f&1");
    row("not(t)", "not(t)");
    row("1.50", "1.5");
    row(".5", "0.5");
    row("1e3", "1000");
    row("1e5", "1e5");
    row("1e+22", "1e22");
    row("1e-7", "1e-7");
    row("1000000000000000000000000", "1e24");
    row("PI+e+EPSILON", "PI+e+EPSILON");
    row("3.141592653589793", "3.141592653589793");
}

void TestExpressionText::canonicalTextIsAsExpected()
{
    QFETCH(QString, text);
    QFETCH(QString, canonical);
    const ParsedExpression parsed(text.toStdString());
    QVERIFY(parsed.tree);
    QCOMPARE(parsed.tree->getString(), canonical.toStdString());
    QCOMPARE(parsed.message.expressionText, text.toStdString());
}

void TestExpressionText::tenThousandRandomExpressionsReadBackIntoTheSameTree()
{
    RandomText texts(7);
    for (int round = 0; round < 10000; ++round) {
        const std::string text = texts.make(1 + round % 7);
        const ParsedExpression first(text);
        QVERIFY2(first.tree, text.c_str());
        const std::string canonical = first.tree->getString();
        QVERIFY2(canonical.find_first_of(" \t\r\n") == std::string::npos, canonical.c_str());
        const ParsedExpression second(canonical);
        QVERIFY2(second.tree, canonical.c_str());
        QCOMPARE(structureOf(*second.tree), structureOf(*first.tree));
        QCOMPARE(second.tree->getString(), canonical);
        QVERIFY2(sameValue(second.tree->value(), first.tree->value()), canonical.c_str());
    }
}

void TestExpressionText::noParenthesisOfCanonicalTextCanBeLeftOut()
{
    RandomText texts(11);
    int groups = 0;
    for (int round = 0; round < 2000; ++round) {
        const ParsedExpression parsed(texts.make(3 + round % 4));
        const std::string canonical = parsed.tree->getString();
        for (const auto& [open, close] : groupsOf(canonical)) {
            std::string bare = canonical;
            bare[open] = ' ';
            bare[close] = ' ';
            const ParsedExpression changed(bare);
            QVERIFY2(!changed.tree || structureOf(*changed.tree) != structureOf(*parsed.tree),
                     canonical.c_str());
            ++groups;
        }
    }
    QVERIFY(groups > 100);
}

void TestExpressionText::aNodeBelowTheRootHasTextOfItsOwn()
{
    const ParsedExpression parsed("(t + 1) * sin( f )");
    const FunctionFloatBinary* product = parsed.tree->getBinaryRef();
    QVERIFY(product);
    QCOMPARE(product->left().getString(), std::string("t+1"));
    QCOMPARE(product->right().getString(), std::string("sin(f)"));
}

void TestExpressionText::kindsAnswerForThemselvesOnly()
{
    const char* const texts[] = {"sin(1)", "1+2", "if(1,2,3)", "1", "t"};
    for (int i = 0; i < 5; ++i) {
        const ParsedExpression parsed(texts[i]);
        const FunctionFloatBase* root = parsed.tree.get();
        QCOMPARE(root->isUnary(), i == 0);
        QCOMPARE(root->isBinary(), i == 1);
        QCOMPARE(root->isTernary(), i == 2);
        QCOMPARE(root->isConstant(), i == 3);
        QCOMPARE(root->isVariableDouble(), i == 4);
        QVERIFY((root->getUnaryRef() == root) == (i == 0));
        QVERIFY((root->getBinaryRef() == root) == (i == 1));
        QVERIFY((root->getTernaryRef() == root) == (i == 2));
        QVERIFY((root->getConstantRef() == root) == (i == 3));
        QVERIFY((root->getVariableDoubleRef() != nullptr) == (i == 4));
    }
}

void TestExpressionText::variablesAnswerByTheirKind()
{
    FunctionParserBase* parser = FunctionParserBase::instance();
    bool flag = true;
    int whole = 2;
    float narrow = 2.5F;
    parser->registerKey("kind.flag", 0, &flag);
    parser->registerKey("kind.whole", 1, &whole);
    parser->registerKey("kind.narrow", 2, &narrow);
    {
        const ParsedExpression asBool("kind.flag");
        const ParsedExpression asInt("kind.whole");
        const ParsedExpression asFloat("kind.narrow");
        QVERIFY(asBool.tree->isVariableBool() && asBool.tree->getVariableBoolRef());
        QVERIFY(asInt.tree->isVariableInt() && asInt.tree->getVariableIntRef());
        QVERIFY(asFloat.tree->isVariableFloat() && asFloat.tree->getVariableFloatRef());
        QVERIFY(!asFloat.tree->isVariableDouble() && !asFloat.tree->getVariableDoubleRef());
        QCOMPARE(asBool.tree->value(), 1.0);
        QCOMPARE(asInt.tree->value(), 2.0);
        QCOMPARE(asFloat.tree->value(), 2.5);
    }
    parser->unregisterKey("kind.flag", &flag);
    parser->unregisterKey("kind.whole", &whole);
    parser->unregisterKey("kind.narrow", &narrow);
}

void TestExpressionText::copiesOfANodeCarryItsText()
{
    const ParsedExpression parsed("1.5");
    const FunctionFloatConstant copy(*parsed.tree->getConstantRef());
    QCOMPARE(copy.getString(), std::string("1.5"));
    FunctionFloatConstant assigned(2.0);
    assigned = copy;
    QCOMPARE(assigned.getString(), std::string("1.5"));
    QCOMPARE(assigned.value(), 1.5);
}

QTEST_APPLESS_MAIN(TestExpressionText)
#include "test_expression_text.moc"
