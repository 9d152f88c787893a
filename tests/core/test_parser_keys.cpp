#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include "core/KeyValue.h"
#include "core/ParserVarMapper.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

FunctionParserBase* parser()
{
    return FunctionParserBase::instance();
}

std::vector<std::string> allNames()
{
    std::vector<std::string> names;
    parser()->getAllKeyNames(names);
    return names;
}

bool isListed(const std::string& name)
{
    const std::vector<std::string> names = allNames();
    return std::find(names.begin(), names.end(), name) != names.end();
}

// A host's variable under a name, registered for as long as it lives.
class Variable
{
public:
    Variable(const std::string& variableName, double value)
        : name(variableName)
        , stored(std::make_unique<double>(value))
    {
        parser()->registerKey(name, 3, stored.get());
    }
    ~Variable() { parser()->unregisterKey(name, stored.get()); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

    double* address() const { return stored.get(); }

private:
    std::string name;
    std::unique_ptr<double> stored; // on the heap, so that reading it too late is noticed
};

class Mapper : public ParserVarMapper
{
public:
    Mapper()
    {
        key.name = "mapped";
        key.kind = 1;
        key.value = &number;
    }

    FunctionParserBase::keyStruct* keyOf(const std::string& name) const override
    {
        asked.push_back(name);
        return name == "mapped" ? &key : nullptr;
    }

    mutable std::vector<std::string> asked;
    mutable FunctionParserBase::keyStruct key;
    int number = 7;
};

} // namespace

class TestParserKeys : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theKeysForTimeAreThereFromTheStart();
    void aKeyOfKindBoolWrittenWithOneHalfReadsBackAsOne();
    void aKeyOfKindIntWrittenWithMinusOnePointNineReadsBackAsMinusOne();
    void valuesAreWrittenByTheirKind();
    void anUnknownKindReadsZeroAndWritesNothing();
    void aKeyWithoutValueReadsZeroAndWritesNothing();
    void aBoolOfAnyByteReadsAsOne();
    void namesAreFoundAsSpeltThenInLowerCase();
    void aVariableMayBearTheNameOfAFunction();
    void theFirstLivingRegistrationAnswers();
    void anExpressionReadsZeroWhileItsNameIsGone();
    void aKeyHandedOutStaysValidWhileItsNameIsGone();
    void theKindMayChangeWhenTheNameComesBack();
    void registeringAnAddressAgainReplacesItsKind();
    void refreshIsCalledBeforeTheValueIsRead();
    void aVariableThatRefreshesItselfReadsItsLastValue();
    void aRefreshFunctionMayUnregisterItsKey();
    void theKeysForTimeCannotBeTakenAway();
    void allVarsComeOnceInTheOrderOfTheirFirstMention();
    void allVarsKeepsNamesThatAreGone();
    void theMapperIsAskedBeforeANameIsUnknown();
    void tenThousandNamesAreRegisteredAndRead();
    void aCopyReadsTheSameValues();
    void assigningTakesKeysOverAndKeepsThoseHandedOut();
    void anAddressThatGoesIsForgottenByCopiesToo();
    void expressionsOutliveTheCopyThatParsedThem();
};

void TestParserKeys::theKeysForTimeAreThereFromTheStart()
{
    QCOMPARE(allNames(), (std::vector<std::string>{"f", "fps", "t"}));
    for (const char* name : {"t", "f", "fps"}) {
        FunctionParserBase::keyStruct* key = parser()->getKey(name);
        QVERIFY(key);
        QCOMPARE(key->name, std::string(name));
        QCOMPARE(key->kind, 3);
    }
    QCOMPARE(readKeyValue(parser()->getKey("fps")), 10.0);
    QCOMPARE(parser()->getKey("T"), nullptr);
    QCOMPARE(parser()->getKey("no.such.name"), nullptr);
    QCOMPARE(parser(), FunctionParserBase::instance());
}

void TestParserKeys::aKeyOfKindBoolWrittenWithOneHalfReadsBackAsOne()
{
    bool flag = false;
    FunctionParserBase::keyStruct key{"flag", 0, &flag};
    writeKeyValue(&key, 0.5);
    QCOMPARE(readKeyValue(&key), 1.0);
    writeKeyValue(&key, 0.0);
    QCOMPARE(readKeyValue(&key), 0.0);
}

void TestParserKeys::aKeyOfKindIntWrittenWithMinusOnePointNineReadsBackAsMinusOne()
{
    int number = 0;
    FunctionParserBase::keyStruct key{"number", 1, &number};
    writeKeyValue(&key, -1.9);
    QCOMPARE(readKeyValue(&key), -1.0);
}

void TestParserKeys::valuesAreWrittenByTheirKind()
{
    int whole = 1;
    float narrow = 1.0F;
    double wide = 1.0;
    FunctionParserBase::keyStruct asInt{"whole", 1, &whole};
    FunctionParserBase::keyStruct asFloat{"narrow", 2, &narrow};
    FunctionParserBase::keyStruct asDouble{"wide", 3, &wide};
    writeKeyValue(&asInt, 1e300);
    QCOMPARE(whole, std::numeric_limits<int>::max());
    writeKeyValue(&asInt, std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(whole, 0);
    writeKeyValue(&asFloat, 0.1);
    QCOMPARE(narrow, 0.1F);
    QCOMPARE(readKeyValue(&asFloat), static_cast<double>(0.1F));
    writeKeyValue(&asDouble, 0.1);
    QCOMPARE(readKeyValue(&asDouble), 0.1);
}

void TestParserKeys::anUnknownKindReadsZeroAndWritesNothing()
{
    double number = 3.0;
    for (const int kind : {-1, 4, 99}) {
        FunctionParserBase::keyStruct key{"number", kind, &number};
        QCOMPARE(readKeyValue(&key), 0.0);
        writeKeyValue(&key, 5.0);
        QCOMPARE(number, 3.0);
    }
}

void TestParserKeys::aKeyWithoutValueReadsZeroAndWritesNothing()
{
    FunctionParserBase::keyStruct key;
    QCOMPARE(readKeyValue(&key), 0.0);
    writeKeyValue(&key, 1.0);
    QCOMPARE(readKeyValue(nullptr), 0.0);
    writeKeyValue(nullptr, 1.0);
}

void TestParserKeys::aBoolOfAnyByteReadsAsOne()
{
    unsigned char byte = 200;
    const FunctionParserBase::keyStruct key{"flag", 0, &byte};
    QCOMPARE(readKeyValue(&key), 1.0);
}

void TestParserKeys::namesAreFoundAsSpeltThenInLowerCase()
{
    const Variable lower("body.Some_Name", 1.0);
    const Variable exact("Body.Other", 2.0);
    const Variable plain("body.other", 3.0);
    QCOMPARE(ParsedExpression("body.Some_Name").tree->value(), 1.0);
    QCOMPARE(ParsedExpression("body.some_name").message.errorKind, 1);
    QCOMPARE(ParsedExpression("Body.Other").tree->value(), 2.0);
    QCOMPARE(ParsedExpression("BODY.OTHER").tree->value(), 3.0);
    QCOMPARE(ParsedExpression("BODY.OTHER").tree->getString(), std::string("body.other"));
}

void TestParserKeys::aVariableMayBearTheNameOfAFunction()
{
    const Variable variable("sin", 4.0);
    QCOMPARE(ParsedExpression("sin+sin(0)").tree->value(), 4.0);
    QCOMPARE(ParsedExpression("sin+sin(0)").tree->getString(), std::string("sin+sin(0)"));
}

void TestParserKeys::theFirstLivingRegistrationAnswers()
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

void TestParserKeys::anExpressionReadsZeroWhileItsNameIsGone()
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

void TestParserKeys::aKeyHandedOutStaysValidWhileItsNameIsGone()
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

void TestParserKeys::theKindMayChangeWhenTheNameComesBack()
{
    auto variable = std::make_unique<Variable>("changing.kind", 5.5);
    const ParsedExpression parsed("changing.kind");
    variable.reset();
    int whole = 4;
    parser()->registerKey("changing.kind", 1, &whole);
    QCOMPARE(parsed.tree->value(), 4.0);
    parser()->unregisterKey("changing.kind", &whole);
}

void TestParserKeys::registeringAnAddressAgainReplacesItsKind()
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

void TestParserKeys::refreshIsCalledBeforeTheValueIsRead()
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

void TestParserKeys::aVariableThatRefreshesItselfReadsItsLastValue()
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

void TestParserKeys::aRefreshFunctionMayUnregisterItsKey()
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

void TestParserKeys::theKeysForTimeCannotBeTakenAway()
{
    FunctionParserBase::keyStruct* key = parser()->getKey("t");
    int called = 0;
    parser()->registerKey("t", 1, key->value, [&called] { ++called; });
    parser()->unregisterKey("t", key->value);
    QCOMPARE(parser()->getKey("t"), key);
    QCOMPARE(key->kind, 3);
    QVERIFY(key->value);
    readKeyValue(key);
    QCOMPARE(called, 0);
    const Variable other("t", 99.0);
    QVERIFY(parser()->getKey("t")->value != other.address());
}

void TestParserKeys::allVarsComeOnceInTheOrderOfTheirFirstMention()
{
    const Variable a("order.a", 1.0);
    const Variable b("order.b", 1.0);
    const Variable c("order.c", 1.0);
    const ParsedExpression parsed(
        "if(order.c,sin(order.a),order.c^t)*order.a+f-(order.b*min(fps,order.a))");
    std::vector<std::string> names;
    for (const FunctionParserBase::keyStruct* key : parser()->getAllVars(parsed.tree.get())) {
        QCOMPARE(key, parser()->getKey(key->name));
        names.push_back(key->name);
    }
    QCOMPARE(names, (std::vector<std::string>{"order.c", "order.a", "t", "f", "order.b", "fps"}));
    QVERIFY(parser()->getAllVars(nullptr).empty());
}

void TestParserKeys::allVarsKeepsNamesThatAreGone()
{
    auto variable = std::make_unique<Variable>("gone.name", 1.0);
    const ParsedExpression parsed("gone.name");
    variable.reset();
    const auto keys = parser()->getAllVars(parsed.tree.get());
    QCOMPARE(keys.size(), std::size_t(1));
    QCOMPARE(keys[0]->name, std::string("gone.name"));
}

void TestParserKeys::theMapperIsAskedBeforeANameIsUnknown()
{
    Mapper mapper;
    parser()->setVarMapper(&mapper);
    {
        const ParsedExpression known("t");
        QVERIFY(mapper.asked.empty());
        const ParsedExpression mapped("2*Mapped");
        QCOMPARE(mapper.asked, (std::vector<std::string>{"Mapped", "mapped"}));
        QVERIFY(mapped.tree);
        QCOMPARE(mapped.tree->value(), 14.0);
        QCOMPARE(mapped.tree->getString(), std::string("2*mapped"));
        QVERIFY(mapped.tree->getBinaryRef()->right().isVariableInt());
        const auto keys = parser()->getAllVars(mapped.tree.get());
        QCOMPARE(keys, std::vector<FunctionParserBase::keyStruct*>{&mapper.key});
        QCOMPARE(ParsedExpression("unknown").message.errorKind, 1);
        QVERIFY(!isListed("mapped"));
    }
    parser()->setVarMapper(nullptr);
    QCOMPARE(ParsedExpression("mapped").message.errorKind, 1);
}

void TestParserKeys::tenThousandNamesAreRegisteredAndRead()
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

void TestParserKeys::aCopyReadsTheSameValues()
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

void TestParserKeys::assigningTakesKeysOverAndKeepsThoseHandedOut()
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

void TestParserKeys::anAddressThatGoesIsForgottenByCopiesToo()
{
    auto variable = std::make_unique<Variable>("copied.gone", 5.0);
    FunctionParserBase copy(*parser());
    ParseMessage message;
    const std::unique_ptr<FunctionFloatBase> tree(copy.parseString("copied.gone", message, false));
    variable.reset();
    QCOMPARE(tree->value(), 0.0);
}

void TestParserKeys::expressionsOutliveTheCopyThatParsedThem()
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

QTEST_APPLESS_MAIN(TestParserKeys)
#include "test_parser_keys.moc"
