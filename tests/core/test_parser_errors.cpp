#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include "core/EvaluationTime.h"

#include <QTest>

#include <algorithm>
#include <random>

namespace {

std::string repeated(const std::string& piece, std::size_t count)
{
    std::string text;
    text.reserve(piece.size() * count);
    for (std::size_t i = 0; i < count; ++i) {
        text += piece;
    }
    return text;
}

bool spansLieInTheText(const ParseMessage& message)
{
    for (const auto& [start, length] : message.errorSpans) {
        const int size = static_cast<int>(message.expressionText.size());
        if (start < 0 || length < std::min(1, size) || start + length > size) {
            return false;
        }
    }
    return true;
}

// A text either gives a tree and a clean message, or null and a message that says why.
bool isConsistent(const ParsedExpression& parsed, const std::string& text)
{
    const ParseMessage& message = parsed.message;
    const bool fine = parsed.tree != nullptr;
    return message.expressionText == text && message.ok == fine &&
           (message.errorKind == 0) == fine && message.errorSpans.empty() == fine &&
           spansLieInTheText(message);
}

} // namespace

class TestParserErrors : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void kindAndSpanTellTheError_data();
    void kindAndSpanTellTheError();
    void everyFieldOfTheMessageIsWrittenAtEachCall();
    void theTextOfTheMessageItselfCanBeParsedAgain();
    void nestingUpTo256ParsesAndDeeperIsAnError_data();
    void nestingUpTo256ParsesAndDeeperIsAnError();
    void nestingOfMixedSortsCountsTogether();
    void sumsOf8191TermsWork();
    void chainsUpToTheLongestTextWork_data();
    void chainsUpToTheLongestTextWork();
    void textOfMoreThanAMillionBytesIsAnError();
    void canonicalTextOfMoreThanAMillionBytesIsAnError();
    void sixteenThousandOpenParenthesesAreAnError();
    void randomBytesNeverCrashAndAlwaysGiveAConsistentMessage();
};

void TestParserErrors::kindAndSpanTellTheError_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    const auto row = [](const char* text, int kind, int start, int length) {
        QTest::newRow(text[0] == '\0' ? "empty" : text)
            << QByteArray(text) << kind << start << length;
    };
    row("X", 1, 0, 1);
    row(" t+X ", 1, 3, 1);
    row(" min( t, X ) ", 1, 9, 1);
    row(" if( X, t, X ) ", 1, 5, 1);
    row("t+no.such.name*2", 1, 2, 12);
    row("pi", 1, 0, 2);
    row("Sin(t)", 1, 0, 3);
    row("foo(t)", 1, 0, 3);
    row("sin", 1, 0, 3);
    row("sin t", 1, 0, 3);
    row("h\xc3\xb6he", 1, 0, 5);
    row("(t", 3, 0, 1);
    row("sin(t", 3, 3, 1);
    row("((t)", 3, 0, 1);
    row("1+(2*(t+1)", 3, 2, 1);
    row("min(1,2", 3, 3, 1);
    row("min(1", 3, 3, 1);
    row("(1+", 3, 0, 1);
    row("(", 3, 0, 1);
    row("", 4, 0, 0);
    row("  ", 4, 0, 1);
    row("t)", 4, 1, 1);
    row("()", 4, 1, 1);
    row("sin()", 4, 4, 1);
    row("1+", 4, 1, 1);
    row("1 && ", 4, 2, 2);
    row("*t", 4, 0, 1);
    row("t t", 4, 2, 1);
    row("2t", 4, 1, 1);
    row("t 12.5", 4, 2, 4);
    row("1.2.3", 4, 3, 2);
    row("1e", 4, 1, 1);
    row("1,5", 4, 1, 1);
    row("t(3)", 4, 1, 1);
    row("e(3)", 4, 1, 1);
    row("min(1)", 4, 5, 1);
    row("min(1,2,3)", 4, 7, 1);
    row("sin(1,2)", 4, 5, 1);
    row("if(1,2)", 4, 6, 1);
    row("t==f", 4, 2, 1);
    row("t||f", 4, 2, 1);
    row("t&&&f", 4, 3, 1);
    row("t$f", 4, 1, 1);
    row(".", 4, 0, 1);
    row("1e400", 4, 0, 5);
    row("2+1e400", 4, 2, 5);
}

void TestParserErrors::kindAndSpanTellTheError()
{
    QFETCH(QByteArray, text);
    QFETCH(int, kind);
    QFETCH(int, start);
    QFETCH(int, length);
    const ParsedExpression parsed(text.toStdString());
    QVERIFY(!parsed.tree);
    QVERIFY(!parsed.message.ok);
    QCOMPARE(parsed.message.errorKind, kind);
    QCOMPARE(parsed.message.errorSpans.size(), std::size_t(1));
    QCOMPARE(parsed.message.errorSpans[0].first, start);
    QCOMPARE(parsed.message.errorSpans[0].second, length);
    QCOMPARE(parsed.message.errorDetail, start);
    QCOMPARE(parsed.message.expressionText, text.toStdString());
}

void TestParserErrors::everyFieldOfTheMessageIsWrittenAtEachCall()
{
    FunctionParserBase* parser = FunctionParserBase::instance();
    ParseMessage message;
    QCOMPARE(parser->parseString("1+X", message, false), nullptr);
    QCOMPARE(message.errorKind, 1);
    message.errorSpans.emplace_back(7, 7);
    const std::unique_ptr<FunctionFloatBase> tree(parser->parseString("t", message, false));
    QVERIFY(tree);
    QVERIFY(message.ok);
    QCOMPARE(message.errorKind, 0);
    QCOMPARE(message.errorDetail, 0);
    QCOMPARE(message.expressionText, std::string("t"));
    QVERIFY(message.errorSpans.empty());
    QCOMPARE(parser->parseString("(t", message, true), nullptr);
    QCOMPARE(message.errorSpans.size(), std::size_t(1));
    QCOMPARE(message.errorKind, 3);
}

void TestParserErrors::theTextOfTheMessageItselfCanBeParsedAgain()
{
    ParseMessage message;
    message.expressionText = "t + 1";
    const std::unique_ptr<FunctionFloatBase> tree(
        FunctionParserBase::instance()->parseString(message.expressionText, message, false));
    QVERIFY(tree);
    QCOMPARE(message.expressionText, std::string("t + 1"));
}

void TestParserErrors::nestingUpTo256ParsesAndDeeperIsAnError_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QByteArray>("tail");
    QTest::newRow("parentheses") << QByteArray("(") << QByteArray(")");
    QTest::newRow("needed parentheses") << QByteArray("1-(t-") << QByteArray(")");
    QTest::newRow("functions") << QByteArray("sin(") << QByteArray(")");
    QTest::newRow("two arguments") << QByteArray("min(1,") << QByteArray(")");
    QTest::newRow("minus") << QByteArray("-") << QByteArray();
    QTest::newRow("plus") << QByteArray("+") << QByteArray();
    QTest::newRow("power") << QByteArray("1^") << QByteArray();
    QTest::newRow("if") << QByteArray("if(1,2,") << QByteArray(")");
    QTest::newRow("all levels") << QByteArray("0|1&1=1+1*(") << QByteArray(")");
}

void TestParserErrors::nestingUpTo256ParsesAndDeeperIsAnError()
{
    QFETCH(QByteArray, head);
    QFETCH(QByteArray, tail);
    for (const int depth : {256, 257, 5000}) {
        const std::string text =
            head.repeated(depth).toStdString() + "t" + tail.repeated(depth).toStdString();
        const ParsedExpression parsed(text);
        QVERIFY(isConsistent(parsed, text));
        QCOMPARE(parsed.message.errorKind, depth > 256 ? 4 : 0);
        if (parsed.tree) {
            const ParsedExpression again(parsed.tree->getString());
            QVERIFY(again.tree);
            QCOMPARE(structureOf(*again.tree), structureOf(*parsed.tree));
        }
    }
}

void TestParserErrors::nestingOfMixedSortsCountsTogether()
{
    const std::string head = repeated("-(", 128);
    const std::string tail = repeated(")", 128);
    QCOMPARE(ParsedExpression(head + "t" + tail).message.errorKind, 0);
    QCOMPARE(ParsedExpression(head + "-t" + tail).message.errorKind, 4);
}

void TestParserErrors::sumsOf8191TermsWork()
{
    const std::string text = "1" + repeated("+1", 8190);
    const ParsedExpression parsed(text);
    QVERIFY(parsed.tree);
    QCOMPARE(parsed.tree->value(), 8191.0);
    QCOMPARE(parsed.tree->getString(), text);
    QVERIFY(FunctionParserBase::instance()->getAllVars(parsed.tree.get()).empty());
}

void TestParserErrors::chainsUpToTheLongestTextWork_data()
{
    QTest::addColumn<QByteArray>("link");
    for (const char* link : {"+t", "*t+t", "&t|-t"}) {
        QTest::newRow(link) << QByteArray(link);
    }
}

void TestParserErrors::chainsUpToTheLongestTextWork()
{
    QFETCH(QByteArray, link);
    const std::string text = "t" + repeated(link.toStdString(), 999999 / link.size());
    const ParsedExpression parsed(text);
    QVERIFY(parsed.tree);
    QVERIFY(isConsistent(parsed, text));
    QCOMPARE(parsed.tree->getString(), text);
    const EvaluationTime moment(0.0, 24.0);
    QCOMPARE(parsed.tree->value(), 0.0);
    const auto keys = FunctionParserBase::instance()->getAllVars(parsed.tree.get());
    QCOMPARE(keys.size(), std::size_t(1));
    QCOMPARE(keys[0]->name, std::string("t"));
    const FunctionFloatBinary* root = parsed.tree->getBinaryRef();
    QVERIFY(root);
    QVERIFY(root->left().getString().size() < text.size());
}

void TestParserErrors::textOfMoreThanAMillionBytesIsAnError()
{
    const std::string longest = "t" + std::string(999999, ' ');
    QCOMPARE(ParsedExpression(longest).message.errorKind, 0);
    const ParsedExpression longer(longest + ' ');
    QVERIFY(isConsistent(longer, longest + ' '));
    QCOMPARE(longer.message.errorKind, 4);
}

void TestParserErrors::canonicalTextOfMoreThanAMillionBytesIsAnError()
{
    const std::string text = ".5" + repeated("+.5", 333332);
    QVERIFY(text.size() <= 1000000);
    const ParsedExpression parsed(text);
    QVERIFY(isConsistent(parsed, text));
    QCOMPARE(parsed.message.errorKind, 4);
}

void TestParserErrors::sixteenThousandOpenParenthesesAreAnError()
{
    const std::string text(16384, '(');
    const ParsedExpression parsed(text);
    QVERIFY(isConsistent(parsed, text));
    QVERIFY(parsed.message.errorKind != 0);
}

void TestParserErrors::randomBytesNeverCrashAndAlwaysGiveAConsistentMessage()
{
    std::mt19937 random(99);
    const std::string likely = "tf0123456789.()+-*/^<>=&|,eEPIsincosmaxminif \t";
    int good = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        const std::size_t length = random() % 24;
        for (std::size_t i = 0; i < length; ++i) {
            const bool anyByte = round % 2 == 0 && random() % 4 == 0;
            text += anyByte ? static_cast<char>(random() % 256) : likely[random() % likely.size()];
        }
        const ParsedExpression parsed(text);
        QVERIFY(isConsistent(parsed, text));
        if (parsed.tree) {
            ++good;
            const ParsedExpression again(parsed.tree->getString());
            QVERIFY(again.tree);
            QCOMPARE(structureOf(*again.tree), structureOf(*parsed.tree));
        }
    }
    QVERIFY(good > 100);
}

QTEST_APPLESS_MAIN(TestParserErrors)
#include "test_parser_errors.moc"
