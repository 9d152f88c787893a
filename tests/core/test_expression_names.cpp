#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"
#include "support/ParserVariable.h"

#include "core/CurveSampler.h"
#include "core/EvaluationTime.h"

#include <QTest>

#include <random>

namespace {

// Of signs that mean something to the parser more often than chance has it.
std::string randomName(std::mt19937& random)
{
    static const std::string signs = "ab.Ets 01_-+*/^()'\\\"&|<>=,;#\xc2\xa0\xc3\xb6\t\n\x01\x7f";
    std::string name;
    const auto length = random() % 7;
    for (unsigned i = 0; i < length; ++i) {
        name += signs[random() % signs.size()];
    }
    static const std::vector<std::string> words = {"t", "f", "fps", "PI", "e", "sin", "1e5", "2nd"};
    return random() % 10 == 0 ? words[random() % words.size()] : name;
}

bool hasControl(const std::string& name)
{
    return std::any_of(name.begin(), name.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 32 || c == 127; });
}

bool isTakenByTheLanguage(const std::string& name)
{
    const std::vector<std::string> words = {"", "t", "f", "fps", "PI", "e", "EPSILON"};
    return std::find(words.begin(), words.end(), name) != words.end();
}

// The name of the variable that the text consists of; none for any other text.
std::optional<std::string> variableIn(const std::string& text)
{
    const ParsedExpression parsed(text);
    const auto* variable = dynamic_cast<const FunctionFloatVariable*>(parsed.tree.get());
    return variable ? std::optional(variable->name()) : std::nullopt;
}

} // namespace

class TestExpressionNames : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void quotesStandOnlyWhereTheyAreNeeded_data();
    void quotesStandOnlyWhereTheyAreNeeded();
    void aNameInQuotesMayBeTypedInSeveralWays_data();
    void aNameInQuotesMayBeTypedInSeveralWays();
    void brokenQuotesAreAnError_data();
    void brokenQuotesAreAnError();
    void anUnknownNameIsMarkedWithItsQuotes();
    void aConstantStaysAConstantInQuotes();
    void aFunctionInQuotesIsAVariable();
    void anyNameReadsBackAsItIsWritten();
    void expressionsWithAnyNamesReadBackIntoTheSameTree();
    void namesThatNothingCanReachAreNotRegistered_data();
    void namesThatNothingCanReachAreNotRegistered();
    void numbersTooSmallForTheRangeAreZero_data();
    void numbersTooSmallForTheRangeAreZero();
    void numbersTooGreatAreAnError_data();
    void numbersTooGreatAreAnError();
    void aNoBreakSpaceIsABlank();
    void samplersReadNamesInQuotes();
};

void TestExpressionNames::quotesStandOnlyWhereTheyAreNeeded_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("written");
    const auto row = [](const char* name, const char* written) {
        QTest::newRow(name) << QByteArray(name) << QByteArray(written);
    };
    row("arm.x", "arm.x");
    row("arm_left.x2", "arm_left.x2");
    row("sin", "sin");
    row("a..b.", "a..b.");
    row("h\xc3\xb6he", "h\xc3\xb6he");
    row("arm-left.x", "'arm-left.x'");
    row("R&D", "'R&D'");
    row("2nd", "'2nd'");
    row("a+b", "'a+b'");
    row("1e5", "'1e5'");
    row(".a", "'.a'");
    row("arm left.x", "'arm\\sleft.x'");
    row("it's", "'it\\'s'");
    row("a\\b", "'a\\\\b'");
    row("\\s", "'\\\\s'");
    row("a\xc2\xa0z", "'a\xc2\xa0z'");
}

void TestExpressionNames::quotesStandOnlyWhereTheyAreNeeded()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, written);
    const Variable variable(name.toStdString(), 4.0);
    QCOMPARE(FunctionParserBase::writtenName(name.toStdString()), written.toStdString());
    const ParsedExpression parsed(" " + written.toStdString() + " * 2");
    QVERIFY(parsed.tree);
    QCOMPARE(parsed.tree->value(), 8.0);
    QCOMPARE(parsed.tree->getString(), written.toStdString() + "*2");
    QCOMPARE(parser()->getAllVars(parsed.tree.get()).at(0)->name, name.toStdString());
}

void TestExpressionNames::aNameInQuotesMayBeTypedInSeveralWays_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("canonical");
    QTest::newRow("a plain name") << "'arm.x'"
                                  << "arm.x";
    QTest::newRow("a blank as it is") << "'arm left'"
                                      << "'arm\\sleft'";
    QTest::newRow("in capital letters") << "'Arm Left'"
                                        << "'arm\\sleft'";
    QTest::newRow("next to an operator") << "'arm.x'-'arm left'"
                                         << "arm.x-'arm\\sleft'";
    QTest::newRow("the time") << "'t'+'T'"
                              << "t+t";
}

void TestExpressionNames::aNameInQuotesMayBeTypedInSeveralWays()
{
    QFETCH(QString, text);
    QFETCH(QString, canonical);
    const Variable plain("arm.x", 1.0);
    const Variable withBlank("arm left", 2.0);
    const ParsedExpression parsed(text.toStdString());
    QVERIFY(parsed.tree);
    QCOMPARE(QString::fromStdString(parsed.tree->getString()), canonical);
}

void TestExpressionNames::brokenQuotesAreAnError_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::newRow("nothing inside") << "1+''" << 2 << 2;
    QTest::newRow("no second quote") << "t+'arm" << 2 << 4;
    QTest::newRow("a quote alone") << "'" << 0 << 1;
    QTest::newRow("the second quote is escaped") << "'arm\\'" << 0 << 6;
    QTest::newRow("an unknown escape") << "'a\\b'+t" << 0 << 5;
    QTest::newRow("a tabulator") << "'a\tb'" << 0 << 5;
}

void TestExpressionNames::brokenQuotesAreAnError()
{
    QFETCH(QString, text);
    QFETCH(int, start);
    QFETCH(int, length);
    const ParsedExpression parsed(text.toStdString());
    QVERIFY(!parsed.tree);
    QCOMPARE(parsed.message.errorKind, 4);
    QCOMPARE(parsed.message.errorSpans.at(0), std::make_pair(start, length));
}

void TestExpressionNames::anUnknownNameIsMarkedWithItsQuotes()
{
    const ParsedExpression parsed("t*'no such'+1");
    QVERIFY(!parsed.tree);
    QCOMPARE(parsed.message.errorKind, 1);
    QCOMPARE(parsed.message.errorSpans.at(0), std::make_pair(2, 9));
}

void TestExpressionNames::aConstantStaysAConstantInQuotes()
{
    const ParsedExpression parsed("'PI'");
    QVERIFY(parsed.tree && parsed.tree->isConstant());
    QCOMPARE(parsed.tree->getString(), std::string("PI"));
}

void TestExpressionNames::aFunctionInQuotesIsAVariable()
{
    const Variable variable("sin", 3.0);
    QCOMPARE(ParsedExpression("'sin'+1").tree->value(), 4.0);
    const ParsedExpression called("'sin'(1)");
    QVERIFY(!called.tree);
    QCOMPARE(called.message.errorSpans.at(0), std::make_pair(5, 1));
}

void TestExpressionNames::anyNameReadsBackAsItIsWritten()
{
    std::mt19937 random(5);
    int quoted = 0;
    int refused = 0;
    for (int round = 0; round < 20000; ++round) {
        const std::string name = randomName(random);
        double value = 1.0;
        const bool isRegistered = parser()->registerKey(name, 3, &value);
        QVERIFY2(isRegistered != (isTakenByTheLanguage(name) || hasControl(name)), name.c_str());
        const std::string written = FunctionParserBase::writtenName(name);
        if (isRegistered) {
            QCOMPARE(variableIn(written), std::optional(name));
            QCOMPARE(ParsedExpression(written).tree->getString(), written);
            QVERIFY(written.find_first_of(" \t\n\v\f\r") == std::string::npos);
            QVERIFY2((variableIn(name) == name) == (written == name), name.c_str());
            quoted += written == name ? 0 : 1;
            parser()->unregisterKey(name, &value);
        } else {
            QVERIFY2(isTakenByTheLanguage(name) || !variableIn(written), name.c_str());
            ++refused;
        }
    }
    QVERIFY(quoted > 1000 && refused > 1000);
}

void TestExpressionNames::expressionsWithAnyNamesReadBackIntoTheSameTree()
{
    std::mt19937 random(6);
    const std::vector<std::string> between = {"+", "-", "*(", "/", "^(", "<", "&"};
    for (int round = 0; round < 2000; ++round) {
        std::vector<std::unique_ptr<Variable>> variables;
        std::string text;
        std::size_t open = 0;
        for (unsigned i = 0; i <= random() % 5; ++i) {
            std::string name = randomName(random);
            name = isTakenByTheLanguage(name) || hasControl(name) ? "other" : name;
            variables.push_back(std::make_unique<Variable>(name, 1.5));
            const std::string& sign = between[random() % between.size()];
            text += FunctionParserBase::writtenName(name) + sign;
            open += sign.size() - 1;
        }
        text += "1" + std::string(open, ')');
        const ParsedExpression first(text);
        QVERIFY2(first.tree, text.c_str());
        const std::string canonical = first.tree->getString();
        const ParsedExpression second(canonical);
        QVERIFY2(second.tree, canonical.c_str());
        QCOMPARE(structureOf(*second.tree), structureOf(*first.tree));
        QCOMPARE(second.tree->getString(), canonical);
    }
}

void TestExpressionNames::namesThatNothingCanReachAreNotRegistered_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isRegistered");
    QTest::newRow("the empty name") << "" << false;
    QTest::newRow("t") << "t" << false;
    QTest::newRow("f") << "f" << false;
    QTest::newRow("fps") << "fps" << false;
    QTest::newRow("PI") << "PI" << false;
    QTest::newRow("e") << "e" << false;
    QTest::newRow("EPSILON") << "EPSILON" << false;
    QTest::newRow("a control character") << "a\nb" << false;
    QTest::newRow("the time in a capital letter") << "T" << true;
    QTest::newRow("a constant in other letters") << "pi" << true;
    QTest::newRow("a function") << "cos" << true;
    QTest::newRow("a blank") << " " << true;
}

void TestExpressionNames::namesThatNothingCanReachAreNotRegistered()
{
    QFETCH(QString, name);
    QFETCH(bool, isRegistered);
    double value = 0.0;
    const std::vector<std::string> before = allNames();
    QCOMPARE(parser()->registerKey(name.toStdString(), 3, &value), isRegistered);
    QCOMPARE(allNames().size(), before.size() + (isRegistered ? 1 : 0));
    QCOMPARE(parser()->registerKey(name.toStdString(), 3, nullptr), false);
    parser()->unregisterKey(name.toStdString(), &value);
    QCOMPARE(parser()->registerGuardedKey(name.toStdString(), 3, &value, {}), isRegistered);
    parser()->unregisterKey(name.toStdString(), &value);
    QCOMPARE(allNames(), before);
}

void TestExpressionNames::numbersTooSmallForTheRangeAreZero_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("an exponent") << "1e-400";
    QTest::newRow("just below the range") << "2e-324";
    QTest::newRow("many digits in front") << QString(100, '7') + "e-500";
    QTest::newRow("many zeros behind the point") << "0." + QString(400, '0') + "1";
    QTest::newRow("zeros and a positive exponent") << "0." + QString(500, '0') + "1e100";
    QTest::newRow("an exponent longer than a number") << "1e-" + QString(40, '9');
    QTest::newRow("the lowest exponent of a number") << "1e-9223372036854775808";
    QTest::newRow("a capital letter") << "1E-400";
}

void TestExpressionNames::numbersTooSmallForTheRangeAreZero()
{
    QFETCH(QString, text);
    const ParsedExpression parsed("1+" + text.toStdString());
    QVERIFY(parsed.tree);
    QCOMPARE(parsed.message.errorKind, 0);
    QCOMPARE(parsed.tree->value(), 1.0);
    QCOMPARE(parsed.tree->getString(), std::string("1+0"));
}

void TestExpressionNames::numbersTooGreatAreAnError_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("an exponent") << "1e400";
    QTest::newRow("an exponent with its sign") << "1e+400";
    QTest::newRow("many digits") << QString(400, '1');
    QTest::newRow("many digits before a point") << QString(700, '1') + ".5e-10";
    QTest::newRow("zeros behind the point") << "0." + QString(100, '0') + "1e500";
    QTest::newRow("an exponent longer than a number") << "1e" + QString(40, '9');
}

void TestExpressionNames::numbersTooGreatAreAnError()
{
    QFETCH(QString, text);
    const ParsedExpression parsed("1+" + text.toStdString());
    QVERIFY(!parsed.tree);
    QCOMPARE(parsed.message.errorKind, 4);
    QCOMPARE(parsed.message.errorSpans.at(0), std::make_pair(2, static_cast<int>(text.size())));
}

void TestExpressionNames::aNoBreakSpaceIsABlank()
{
    const ParsedExpression parsed("\xc2\xa0"
                                  "1\xc2\xa0+ sin\xc2\xa0(\xc2\xa0t)\xc2\xa0");
    QVERIFY(parsed.tree);
    QCOMPARE(parsed.tree->getString(), std::string("1+sin(t)"));
    const ParsedExpression alone("\xc2\xa0");
    QVERIFY(!alone.tree);
    QCOMPARE(alone.message.errorSpans.at(0), std::make_pair(0, 1));
    const Variable variable("wind", 2.0);
    QCOMPARE(ParsedExpression("wind\xc2\xa0").tree->value(), 2.0);
}

void TestExpressionNames::samplersReadNamesInQuotes()
{
    CurveSampler::Source source;
    source.text = "'arm-left.x'*2+'Arm\\sRight.x'";
    const auto bindings = CurveSampler::named({{"arm-left.x", 2.0}, {"arm right.x", 0.5}});
    const CurveSampler::Pointer ofText = CurveSampler::make(source, bindings);
    QVERIFY(ofText);
    QCOMPARE(ofText->value(1.0), 4.5);
    const Variable left("arm-left.x", 0.0);
    const Variable right("arm right.x", 0.0);
    const ParsedExpression parsed(source.text);
    source.text.clear();
    source.expression = parsed.tree.get();
    const CurveSampler::Pointer ofTree = CurveSampler::make(source, bindings);
    QVERIFY(ofTree);
    QCOMPARE(ofTree->value(1.0), 4.5);
}

QTEST_APPLESS_MAIN(TestExpressionNames)
#include "test_expression_names.moc"
