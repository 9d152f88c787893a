#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"
#include "support/ParserVariable.h"

#include "core/KeyValue.h"
#include "core/ParserScope.h"
#include "core/ParserVarMapper.h"

#include <QTest>

namespace {

// A variable of a scope, registered for as long as it lives.
class ScopedVariable
{
public:
    ScopedVariable(const ParserScope& scope, const std::string& variableName, double value)
        : name(variableName)
        , stored(std::make_unique<double>(value))
    {
        parser()->registerGuardedKey(
            name, 3, stored.get(), [this] { ++refreshed; }, &scope);
    }
    ~ScopedVariable() { parser()->unregisterKey(name, stored.get()); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

    int refreshed = 0;

private:
    std::string name;
    std::unique_ptr<double> stored;
};

using Tree = std::unique_ptr<FunctionFloatBase>;

Tree parsed(const ParserScope* scope, const std::string& text)
{
    ParseMessage message;
    return Tree(parser()->parseWithin(scope, text, message));
}

std::vector<std::string> namesIn(const ParserScope& scope)
{
    std::vector<std::string> names;
    parser()->getAllKeyNames(names, &scope);
    return names;
}

bool isIn(const std::vector<std::string>& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

// Registers a name when it is first asked for.
class RegisteringMapper : public ParserVarMapper
{
public:
    FunctionParserBase::keyStruct* keyOf(const std::string& name) const override
    {
        if (name != "made.late") {
            return nullptr;
        }
        parser()->registerKey(name, 3, &value);
        return parser()->getKey(name);
    }

    mutable double value = 6.0;
};

} // namespace

class TestParserScopes : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void anExpressionReadsTheVariablesOfItsScope();
    void ownVariablesComeBeforeThoseOfHosts();
    void otherScopesAreUnknown();
    void theTimeIsTheSameEverywhere();
    void namesInCapitalLettersAreFoundInTheScope();
    void whatIsParsedWithoutAScopeReadsAll();
    void namesOfOtherScopesAreNotListed();
    void aVariableThatComesBackIsReadAgain();
    void expressionsOutliveTheirScope();
    void anotherScopeAdoptsWhatOutlivedItsOwn();
    void keysOfAScopeAreRefreshedByTheParser();
    void keysHandedOutOutliveExpressionAndScope();
    void theMapperIsAskedForNamesOfOtherScopes();
    void copiesOfTheParserKeepScopesApart();
    void expressionsOfACopyOutliveIt();
};

void TestParserScopes::anExpressionReadsTheVariablesOfItsScope()
{
    const ParserScope first;
    const ParserScope second;
    const ScopedVariable a(first, "body.w", 1.0);
    const ScopedVariable b(second, "body.w", 2.0);
    const Tree ofFirst = parsed(&first, "body.w+10");
    const Tree ofSecond = parsed(&second, "body.w+10");
    QCOMPARE(ofFirst->value(), 11.0);
    QCOMPARE(ofSecond->value(), 12.0);
    QCOMPARE(ofSecond->getString(), std::string("body.w+10"));
    QCOMPARE(parser()->getAllVars(ofSecond.get()).at(0)->name, std::string("body.w"));
}

void TestParserScopes::ownVariablesComeBeforeThoseOfHosts()
{
    const ParserScope scope;
    const Variable hosts("body.w", 5.0);
    auto own = std::make_unique<ScopedVariable>(scope, "body.w", 1.0);
    const Tree tree = parsed(&scope, "body.w");
    QCOMPARE(tree->value(), 1.0);
    own.reset();
    QCOMPARE(tree->value(), 5.0);
    own = std::make_unique<ScopedVariable>(scope, "body.w", 3.0);
    QCOMPARE(tree->value(), 3.0);
    QCOMPARE(parsed(&scope, "body.w")->value(), 3.0);
}

void TestParserScopes::otherScopesAreUnknown()
{
    const ParserScope first;
    const ParserScope second;
    const ScopedVariable variable(first, "body.w", 1.0);
    ParseMessage message;
    QVERIFY(!parser()->parseWithin(&second, "t+body.w", message));
    QCOMPARE(message.errorKind, 1);
    const auto hosts = std::make_unique<Variable>("body.w", 5.0);
    const Tree tree = parsed(&second, "body.w");
    QCOMPARE(tree->value(), 5.0);
    parser()->unregisterKey("body.w", hosts->address());
    QCOMPARE(tree->value(), 0.0);
}

void TestParserScopes::theTimeIsTheSameEverywhere()
{
    const ParserScope scope;
    const Tree tree = parsed(&scope, "t");
    QCOMPARE(parser()->getAllVars(tree.get()).at(0), parser()->getKey("t"));
}

void TestParserScopes::namesInCapitalLettersAreFoundInTheScope()
{
    const ParserScope first;
    const ParserScope second;
    const ScopedVariable foreign(first, "Body.W", 1.0);
    const ScopedVariable own(second, "body.w", 2.0);
    QCOMPARE(parsed(&second, "Body.W")->value(), 2.0);
    QCOMPARE(parsed(nullptr, "Body.W")->value(), 1.0);
}

void TestParserScopes::whatIsParsedWithoutAScopeReadsAll()
{
    const ParserScope first;
    const ParserScope second;
    auto a = std::make_unique<ScopedVariable>(first, "body.w", 1.0);
    const ScopedVariable b(second, "body.w", 2.0);
    const ParsedExpression tree("body.w");
    QCOMPARE(tree.tree->value(), 1.0);
    QCOMPARE(readKeyValue(parser()->getKey("body.w")), 1.0);
    a.reset();
    QCOMPARE(tree.tree->value(), 2.0);
    QVERIFY(isListed("body.w"));
}

void TestParserScopes::namesOfOtherScopesAreNotListed()
{
    const ParserScope first;
    const ParserScope second;
    const ScopedVariable a(first, "own.a", 1.0);
    const ScopedVariable b(second, "own.b", 2.0);
    const Variable hosts("hosts.c", 3.0);
    const std::vector<std::string> names = namesIn(first);
    QVERIFY(isIn(names, "own.a") && isIn(names, "hosts.c") && isIn(names, "t"));
    QVERIFY(!isIn(names, "own.b"));
    QVERIFY(isListed("own.a") && isListed("own.b"));
}

void TestParserScopes::aVariableThatComesBackIsReadAgain()
{
    const ParserScope scope;
    auto own = std::make_unique<ScopedVariable>(scope, "body.w", 1.0);
    const Tree tree = parsed(&scope, "body.w+1");
    own.reset();
    QCOMPARE(tree->value(), 1.0);
    ParseMessage message;
    QVERIFY(!parser()->parseWithin(&scope, "body.w", message));
    own = std::make_unique<ScopedVariable>(scope, "body.w", 7.0);
    QCOMPARE(tree->value(), 8.0);
}

void TestParserScopes::expressionsOutliveTheirScope()
{
    auto scope = std::make_unique<ParserScope>();
    auto own = std::make_unique<ScopedVariable>(*scope, "body.w", 1.0);
    const Tree tree = parsed(scope.get(), "body.w");
    own.reset();
    scope.reset();
    QCOMPARE(tree->value(), 0.0);
    const Variable hosts("body.w", 4.0);
    QCOMPARE(tree->value(), 4.0);
    QCOMPARE(tree->getString(), std::string("body.w"));
}

void TestParserScopes::anotherScopeAdoptsWhatOutlivedItsOwn()
{
    auto former = std::make_unique<ParserScope>();
    const ParserScope foreign;
    const ParserScope next;
    const ScopedVariable foreignVariable(foreign, "body.w", 2.0);
    Tree tree;
    {
        const ScopedVariable own(*former, "body.w", 1.0);
        tree = parsed(former.get(), "body.w+t*0");
    }
    next.adopt(tree.get());
    QCOMPARE(tree->value(), 0.0); // its scope lives
    former.reset();
    QCOMPARE(tree->value(), 2.0);
    const ScopedVariable nextVariable(next, "body.w", 3.0);
    QCOMPARE(tree->value(), 2.0);
    next.adopt(tree.get());
    QCOMPARE(tree->value(), 3.0);
    const ParsedExpression ofAll("body.w");
    next.adopt(ofAll.tree.get());
    QCOMPARE(ofAll.tree->value(), 2.0);
    next.adopt(nullptr);
}

void TestParserScopes::keysOfAScopeAreRefreshedByTheParser()
{
    const ParserScope first;
    const ParserScope second;
    ScopedVariable a(first, "body.w", 1.0);
    ScopedVariable b(second, "body.w", 2.0);
    const Tree tree = parsed(&second, "body.w");
    QCOMPARE(readKeyValue(parser()->getAllVars(tree.get()).at(0)), 2.0);
    QCOMPARE(b.refreshed, 1);
    QCOMPARE(a.refreshed, 0);
}

void TestParserScopes::keysHandedOutOutliveExpressionAndScope()
{
    auto scope = std::make_unique<ParserScope>();
    auto own = std::make_unique<ScopedVariable>(*scope, "body.w", 1.0);
    Tree tree = parsed(scope.get(), "body.w*2");
    FunctionParserBase::keyStruct* const key = parser()->getAllVars(tree.get()).at(0);
    tree.reset();
    own.reset();
    scope.reset();
    QCOMPARE(key->name, std::string("body.w"));
    QVERIFY(!key->value);
    const Variable hosts("body.w", 4.0);
    parser()->refreshKey(key);
    QCOMPARE(readKeyValue(key), 4.0);
}

void TestParserScopes::theMapperIsAskedForNamesOfOtherScopes()
{
    const RegisteringMapper mapper;
    const ParserScope scope;
    parser()->setVarMapper(&mapper);
    const Tree tree = parsed(&scope, "made.late*2");
    parser()->setVarMapper(nullptr);
    QVERIFY(tree);
    QCOMPARE(tree->value(), 12.0);
    const ScopedVariable own(scope, "made.late", 1.0);
    QCOMPARE(tree->value(), 2.0);
    parser()->unregisterKey("made.late", &mapper.value);
}

void TestParserScopes::copiesOfTheParserKeepScopesApart()
{
    auto first = std::make_unique<ParserScope>();
    const ParserScope second;
    auto a = std::make_unique<ScopedVariable>(*first, "body.w", 1.0);
    const ScopedVariable b(second, "body.w", 2.0);
    FunctionParserBase copy(*parser());
    ParseMessage message;
    const Tree ofFirst(copy.parseWithin(first.get(), "body.w", message));
    const Tree ofSecond(copy.parseWithin(&second, "body.w", message));
    QCOMPARE(ofFirst->value(), 1.0);
    QCOMPARE(ofSecond->value(), 2.0);
    a.reset();
    first.reset();
    QCOMPARE(ofFirst->value(), 2.0);
}

void TestParserScopes::expressionsOfACopyOutliveIt()
{
    auto scope = std::make_unique<ParserScope>();
    auto own = std::make_unique<ScopedVariable>(*scope, "body.w", 1.0);
    auto copy = std::make_unique<FunctionParserBase>(*parser());
    ParseMessage message;
    const Tree tree(copy->parseWithin(scope.get(), "body.w+2", message));
    QCOMPARE(tree->value(), 3.0);
    copy.reset();
    const int refreshed = own->refreshed;
    QCOMPARE(tree->value(), 2.0);
    QCOMPARE(own->refreshed, refreshed);
    own.reset();
    scope.reset();
    QCOMPARE(tree->value(), 2.0);
}

QTEST_APPLESS_MAIN(TestParserScopes)
#include "test_parser_scopes.moc"
