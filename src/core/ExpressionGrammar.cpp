#include "core/ExpressionGrammar.h"

#include "core/ExpressionTables.h"
#include "core/FunctionFloatBinary.h"
#include "core/FunctionFloatConstant.h"
#include "core/FunctionFloatTernary.h"
#include "core/FunctionFloatUnary.h"
#include "core/FunctionFloatVariableBool.h"
#include "core/FunctionFloatVariableDouble.h"
#include "core/FunctionFloatVariableFloat.h"
#include "core/FunctionFloatVariableInt.h"
#include "core/ParserKeyEntry.h"

#include <algorithm>
#include <utility>

ExpressionGrammar::ExpressionGrammar(std::string_view expressionText, VariableLookUp variableLookUp)
    : lexer(expressionText)
    , lookUp(std::move(variableLookUp))
    , text(expressionText)
{}

std::unique_ptr<FunctionFloatBase> ExpressionGrammar::read()
{
    advance();
    Tree tree = readOperators(expression_level::loosest);
    if (tree && token.kind != ExpressionLexer::end) {
        return failHere();
    }
    return tree;
}

const ExpressionGrammar::Error& ExpressionGrammar::error() const
{
    return firstError;
}

// Operands joined by operators of this level or tighter ones, but for the power.
ExpressionGrammar::Tree ExpressionGrammar::readOperators(const int& loosestLevel)
{
    Tree left = readSigned();
    while (left && token.kind == ExpressionLexer::symbol) {
        const BinaryOperation* operation = expression_tables::binaryOperator(token.sign);
        if (!operation || operation->level < loosestLevel) {
            break;
        }
        advance();
        Tree right = readOperators(operation->level + 1);
        if (!right) {
            return nullptr;
        }
        left = FunctionFloatBinary::make(*operation, std::move(left), std::move(right));
    }
    return left;
}

ExpressionGrammar::Tree ExpressionGrammar::readSigned()
{
    const bool negative = atSymbol('-');
    if (!negative && !atSymbol('+')) {
        return readPower();
    }
    if (!nest()) {
        return nullptr;
    }
    advance();
    Tree argument = readSigned();
    --nesting;
    if (!argument || !negative) {
        return argument;
    }
    return std::make_unique<FunctionFloatUnary>(expression_tables::negation(), std::move(argument));
}

ExpressionGrammar::Tree ExpressionGrammar::readPower()
{
    Tree base = readPrimary();
    if (!base || !atSymbol('^')) {
        return base;
    }
    if (!nest()) {
        return nullptr;
    }
    advance();
    Tree exponent = readSigned();
    --nesting;
    if (!exponent) {
        return nullptr;
    }
    return FunctionFloatBinary::make(*expression_tables::binaryOperator('^'), std::move(base),
                                     std::move(exponent));
}

ExpressionGrammar::Tree ExpressionGrammar::readPrimary()
{
    switch (token.kind) {
    case ExpressionLexer::number: {
        const double number = token.value;
        advance();
        return std::make_unique<FunctionFloatConstant>(number);
    }
    case ExpressionLexer::name:
        return readName();
    case ExpressionLexer::symbol:
        return atSymbol('(') ? readGroup() : failHere();
    default:
        return failHere();
    }
}

ExpressionGrammar::Tree ExpressionGrammar::readGroup()
{
    if (!openGroup()) {
        return nullptr;
    }
    Tree inner = readOperators(expression_level::loosest);
    return inner && closeGroup() ? std::move(inner) : nullptr;
}

// A function only where a parenthesis follows, so that a variable may bear the name of one.
ExpressionGrammar::Tree ExpressionGrammar::readName()
{
    const Token name = token;
    const std::string word = lexer.nameOf(name);
    advance();
    if (!name.isQuoted && atSymbol('(') && expression_tables::isFunction(word)) {
        return readCall(word);
    }
    if (const NamedConstant* constant = expression_tables::constant(word)) {
        return std::make_unique<FunctionFloatConstant>(*constant);
    }
    return readVariable(word, name);
}

ExpressionGrammar::Tree ExpressionGrammar::readVariable(const std::string& name, const Token& place)
{
    std::shared_ptr<ParserKeyEntry> entry = lookUp(name);
    if (!entry) {
        return fail(ParseMessage::unknownName, place);
    }
    switch (entry->key->kind) {
    case 0:
        return std::make_unique<FunctionFloatVariableBool>(std::move(entry));
    case 1:
        return std::make_unique<FunctionFloatVariableInt>(std::move(entry));
    case 2:
        return std::make_unique<FunctionFloatVariableFloat>(std::move(entry));
    default:
        return std::make_unique<FunctionFloatVariableDouble>(std::move(entry));
    }
}

ExpressionGrammar::Tree ExpressionGrammar::readCall(std::string_view function)
{
    Tree arguments[3];
    if (const UnaryOperation* unary = expression_tables::unaryFunction(function)) {
        return readArguments(arguments, 1)
                   ? std::make_unique<FunctionFloatUnary>(*unary, std::move(arguments[0]))
                   : nullptr;
    }
    if (const BinaryOperation* binary = expression_tables::binaryFunction(function)) {
        return readArguments(arguments, 2)
                   ? FunctionFloatBinary::make(*binary, std::move(arguments[0]),
                                               std::move(arguments[1]))
                   : nullptr;
    }
    return readArguments(arguments, 3)
               ? std::make_unique<FunctionFloatTernary>(
                     std::move(arguments[0]), std::move(arguments[1]), std::move(arguments[2]))
               : nullptr;
}

bool ExpressionGrammar::readArguments(Tree* arguments, const int& count)
{
    if (!openGroup()) {
        return false;
    }
    for (int i = 0; i < count; ++i) {
        if (i > 0) {
            if (!atSymbol(',')) {
                failHere();
                return false;
            }
            advance();
        }
        arguments[i] = readOperators(expression_level::loosest);
        if (!arguments[i]) {
            return false;
        }
    }
    return closeGroup();
}

bool ExpressionGrammar::atSymbol(char sign) const
{
    return token.kind == ExpressionLexer::symbol && token.sign == sign;
}

void ExpressionGrammar::advance()
{
    previous = token;
    token = lexer.next();
}

bool ExpressionGrammar::nest()
{
    if (nesting == deepestNesting) {
        fail(ParseMessage::otherError, token);
        return false;
    }
    ++nesting;
    return true;
}

bool ExpressionGrammar::openGroup()
{
    if (!nest()) {
        return false;
    }
    openGroups.push_back(token);
    advance();
    return true;
}

bool ExpressionGrammar::closeGroup()
{
    if (!atSymbol(')')) {
        failHere();
        return false;
    }
    openGroups.pop_back();
    --nesting;
    advance();
    return true;
}

ExpressionGrammar::Tree ExpressionGrammar::fail(const ParseMessage::errorKinds& kind,
                                                const Token& place)
{
    const std::size_t length = std::max<std::size_t>(place.length, 1);
    firstError = {kind, place.start, std::min(length, text.size() - place.start)};
    return nullptr;
}

// At the end of the text the parenthesis that waits to be closed is to blame, or else the token
// that has nothing behind it.
ExpressionGrammar::Tree ExpressionGrammar::failHere()
{
    if (token.kind != ExpressionLexer::end) {
        return fail(ParseMessage::otherError, token);
    }
    return openGroups.empty() ? fail(ParseMessage::otherError, previous)
                              : fail(ParseMessage::openParenthesis, openGroups.back());
}
