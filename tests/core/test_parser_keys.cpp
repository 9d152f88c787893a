#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"
#include "support/ParserVariable.h"

#include "core/KeyValue.h"
#include "core/ParserVarMapper.h"

#include <QTest>

#include <limits>

namespace {

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
    void aVariableBearsTheNameOfAConstantInVain();
    void namesOfPointsAndForeignLettersReadBack();
    void theKeysForTimeCannotBeTakenAway();
    void allVarsComeOnceInTheOrderOfTheirFirstMention();
    void theMapperIsAskedBeforeANameIsUnknown();
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

void TestParserKeys::aVariableBearsTheNameOfAConstantInVain()
{
    const Variable variable("e", 4.0);
    QVERIFY(ParsedExpression("e").tree->isConstant());
    // Its canonical text would be "e", which reads back as the constant.
    QCOMPARE(ParsedExpression("E").message.errorKind, 1);
    const Variable capital("E", 5.0);
    QCOMPARE(ParsedExpression("E").tree->value(), 5.0);
    QCOMPARE(ParsedExpression("E").tree->getString(), std::string("E"));
}

void TestParserKeys::namesOfPointsAndForeignLettersReadBack()
{
    for (const char* name : {"a.b.c", "_a.1.", "k\xc3\xb6rper.h\xc3\xb6he", "\xff.\x80"}) {
        const Variable variable(name, 3.0);
        const ParsedExpression first(std::string("-1e-7* ") + name + " ^2");
        QVERIFY(first.tree);
        QCOMPARE(first.tree->getString(), std::string("-1e-7*") + name + "^2");
        const ParsedExpression second(first.tree->getString());
        QVERIFY(second.tree);
        QCOMPARE(structureOf(*second.tree), structureOf(*first.tree));
    }
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

QTEST_APPLESS_MAIN(TestParserKeys)
#include "test_parser_keys.moc"
