#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"
#include "support/ParserVariable.h"

#include "core/KeyValue.h"

#include <QTest>

class TestParserRegistrations : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theFirstLivingRegistrationAnswers();
    void anExpressionReadsZeroWhileItsNameIsGone();
    void aKeyHandedOutStaysValidWhileItsNameIsGone();
    void theKindMayChangeWhenTheNameComesBack();
    void registeringAnAddressAgainReplacesItsKind();
    void refreshIsCalledBeforeTheValueIsRead();
    void aVariableThatRefreshesItselfReadsItsLastValue();
    void aRefreshFunctionMayUnregisterItsKey();
    void allVarsKeepsNamesThatAreGone();
    void tenThousandNamesAreRegisteredAndRead();
    void aCopyReadsTheSameValues();
    void assigningTakesKeysOverAndKeepsThoseHandedOut();
    void anAddressThatGoesIsForgottenByCopiesToo();
    void expressionsOutliveTheCopyThatParsedThem();
};

void TestParserRegistrations::theFirstLivingRegistrationAnswers()
{
    auto first = std::make_unique<Variable>("queue.name", 1.0);
    auto second = std::make_unique<Variable>("queue.name", 2.0);
    auto third = std::make_unique<Variable>("queue.name", 3.0);
    const ParsedExpression parsed("queue.name");
    QCOMPARE(parsed.tree->value(), 1.0);
    second.reset();
    QCOMPARE(parsed.tree->value(), 1.0);
    first.reset();
    QCOMPARE(parsed.tree->value(), 3.0);
    third.reset();
    QCOMPARE(parsed.tree->value(), 0.0);
}

void TestParserRegistrations::anExpressionReadsZeroWhileItsNameIsGone()
{
    auto variable = std::make_unique<Variable>("coming.going", 5.0);
    const ParsedExpression parsed("coming.going+1");
    QCOMPARE(parsed.tree->value(), 6.0);
    variable.reset();
    QCOMPARE(parsed.tree->value(), 1.0);
    QVERIFY(!isListed("coming.going"));
    QCOMPARE(ParsedExpression("coming.going").message.errorKind, 1);
    variable = std::make_unique<Variable>("coming.going", 7.0);
    QCOMPARE(parsed.tree->value(), 8.0);
    QVERIFY(isListed("coming.going"));
    QCOMPARE(parsed.tree->getString(), std::string("coming.going+1"));
}

void TestParserRegistrations::aKeyHandedOutStaysValidWhileItsNameIsGone()
{
    auto variable = std::make_unique<Variable>("handed.out", 5.0);
    FunctionParserBase::keyStruct* key = parser()->getKey("handed.out");
    QCOMPARE(readKeyValue(key), 5.0);
    variable.reset();
    QCOMPARE(readKeyValue(key), 0.0);
    writeKeyValue(key, 3.0);
    QCOMPARE(parser()->getKey("handed.out"), nullptr);
    variable = std::make_unique<Variable>("handed.out", 6.0);
    QCOMPARE(parser()->getKey("handed.out"), key);
    QCOMPARE(readKeyValue(key), 6.0);
}

void TestParserRegistrations::theKindMayChangeWhenTheNameComesBack()
{
    auto variable = std::make_unique<Variable>("changing.kind", 5.5);
    const ParsedExpression parsed("changing.kind");
    variable.reset();
    int whole = 4;
    parser()->registerKey("changing.kind", 1, &whole);
    QCOMPARE(parsed.tree->value(), 4.0);
    parser()->unregisterKey("changing.kind", &whole);
}

void TestParserRegistrations::registeringAnAddressAgainReplacesItsKind()
{
    int number = 3;
    parser()->registerKey("again.name", 3, nullptr);
    QVERIFY(!isListed("again.name"));
    parser()->registerKey("again.name", 77, &number);
    QCOMPARE(ParsedExpression("again.name").tree->value(), 0.0);
    parser()->registerKey("again.name", 1, &number);
    QCOMPARE(ParsedExpression("again.name").tree->value(), 3.0);
    parser()->unregisterKey("again.name", &number);
    QVERIFY(!isListed("again.name"));
    parser()->unregisterKey("again.name", &number);
    parser()->unregisterKey("never.there", &number);
}

void TestParserRegistrations::refreshIsCalledBeforeTheValueIsRead()
{
    double value = 0.0;
    parser()->registerKey("fresh.name", 3, &value, [&value] { value += 1.0; });
    const ParsedExpression parsed("fresh.name*10");
    QCOMPARE(parsed.tree->value(), 10.0);
    QCOMPARE(parsed.tree->value(), 20.0);
    QCOMPARE(readKeyValue(parser()->getKey("fresh.name")), 3.0);
    parser()->unregisterKey("fresh.name", &value);
    QCOMPARE(parsed.tree->value(), 0.0);
    QCOMPARE(value, 3.0);
}

void TestParserRegistrations::aVariableThatRefreshesItselfReadsItsLastValue()
{
    double value = 1.0;
    std::unique_ptr<FunctionFloatBase> own;
    parser()->registerKey("circle.name", 3, &value, [&] { value = own->value() + 1.0; });
    ParseMessage message;
    own.reset(parser()->parseString("circle.name", message, false));
    QCOMPARE(own->value(), 2.0);
    QCOMPARE(own->value(), 3.0);
    parser()->unregisterKey("circle.name", &value);
}

void TestParserRegistrations::aRefreshFunctionMayUnregisterItsKey()
{
    auto value = std::make_unique<double>(1.0);
    const std::string name = "short.lived";
    parser()->registerKey(name, 3, value.get(), [&value, name] {
        parser()->unregisterKey(name, value.get());
        value.reset();
    });
    const ParsedExpression parsed(name);
    QCOMPARE(parsed.tree->value(), 0.0);
    QVERIFY(!value);
}

void TestParserRegistrations::allVarsKeepsNamesThatAreGone()
{
    auto variable = std::make_unique<Variable>("gone.name", 1.0);
    const ParsedExpression parsed("gone.name");
    variable.reset();
    const auto keys = parser()->getAllVars(parsed.tree.get());
    QCOMPARE(keys.size(), std::size_t(1));
    QCOMPARE(keys[0]->name, std::string("gone.name"));
}

void TestParserRegistrations::tenThousandNamesAreRegisteredAndRead()
{
    std::vector<std::unique_ptr<Variable>> variables;
    std::string text = "0";
    for (int i = 0; i < 10000; ++i) {
        const std::string name = "many.n" + std::to_string(i);
        variables.push_back(std::make_unique<Variable>(name, i));
        text += "+" + name;
    }
    const ParsedExpression parsed(text);
    QVERIFY(parsed.tree);
    QCOMPARE(parsed.tree->value(), 49995000.0);
    QCOMPARE(parser()->getAllVars(parsed.tree.get()).size(), std::size_t(10000));
    QCOMPARE(allNames().size(), std::size_t(10003));
    variables.clear();
    QCOMPARE(parsed.tree->value(), 0.0);
    QCOMPARE(allNames().size(), std::size_t(3));
}

void TestParserRegistrations::aCopyReadsTheSameValues()
{
    const Variable variable("copy.name", 5.0);
    FunctionParserBase copy(*parser());
    ParseMessage message;
    const std::unique_ptr<FunctionFloatBase> tree(copy.parseString("copy.name", message, false));
    QCOMPARE(tree->value(), 5.0);
    *variable.address() = 6.0;
    QCOMPARE(tree->value(), 6.0);
    QVERIFY(copy.getKey("copy.name") != parser()->getKey("copy.name"));
    double own = 1.0;
    copy.registerKey("copy.own", 3, &own);
    QVERIFY(copy.getKey("copy.own"));
    QVERIFY(!parser()->getKey("copy.own"));
    copy.unregisterKey("copy.own", &own);
}

void TestParserRegistrations::assigningTakesKeysOverAndKeepsThoseHandedOut()
{
    FunctionParserBase target(*parser());
    double own = 8.0;
    target.registerKey("target.own", 3, &own);
    FunctionParserBase::keyStruct* key = target.getKey("target.own");
    ParseMessage message;
    const std::unique_ptr<FunctionFloatBase> tree(target.parseString("target.own", message, false));
    const Variable variable("assigned.name", 5.0);
    target = *parser();
    QVERIFY(target.getKey("assigned.name"));
    QVERIFY(!target.getKey("target.own"));
    QCOMPARE(readKeyValue(key), 0.0);
    QCOMPARE(tree->value(), 0.0);
}

void TestParserRegistrations::anAddressThatGoesIsForgottenByCopiesToo()
{
    auto variable = std::make_unique<Variable>("copied.gone", 5.0);
    FunctionParserBase copy(*parser());
    ParseMessage message;
    const std::unique_ptr<FunctionFloatBase> tree(copy.parseString("copied.gone", message, false));
    variable.reset();
    QCOMPARE(tree->value(), 0.0);
}

void TestParserRegistrations::expressionsOutliveTheCopyThatParsedThem()
{
    const Variable variable("outlived.name", 5.0);
    auto copy = std::make_unique<FunctionParserBase>(*parser());
    ParseMessage message;
    const std::unique_ptr<FunctionFloatBase> tree(
        copy->parseString("outlived.name+1", message, false));
    copy.reset();
    QCOMPARE(tree->value(), 1.0);
    QCOMPARE(tree->getString(), std::string("outlived.name+1"));
    QVERIFY(parser()->getAllVars(tree.get()).empty());
}

QTEST_APPLESS_MAIN(TestParserRegistrations)
#include "test_parser_registrations.moc"
