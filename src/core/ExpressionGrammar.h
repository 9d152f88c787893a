#pragma once

#include "core/ExpressionLexer.h"
#include "core/ParseMessage.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class FunctionFloatBase;
class ParserKeyEntry;
struct BinaryOperation;

/// Reads the text of an expression into a tree, by recursive descent. Loosest first:
///
///     |    &    = < >    + -    * /    unary - +    ^
///
/// Operators of one level group to the left. The power groups to the right, and its right side
/// may carry a sign: 2^-1; -2^2 is -4.
class ExpressionGrammar
{
public:
    /// What is wrong, and where; the span lies in the text and is empty in an empty text alone.
    struct Error
    {
        ParseMessage::errorKinds kind = ParseMessage::noError;
        std::size_t start = 0;
        std::size_t length = 0;
    };

    /// Finds a variable; null for a name that nobody knows.
    using VariableLookUp = std::function<std::shared_ptr<ParserKeyEntry>(const std::string&)>;

    /// The text must outlive the grammar.
    ExpressionGrammar(std::string_view expressionText, VariableLookUp variableLookUp);

    /// The tree, or null with the error set. For use once.
    std::unique_ptr<FunctionFloatBase> read();

    const Error& error() const;

    /// Parentheses, calls, signs and powers nest this deep; what nests deeper is an error.
    static constexpr int deepestNesting = 256;

private:
    using Tree = std::unique_ptr<FunctionFloatBase>;
    using Token = ExpressionLexer::Token;

    Tree readOperators(const int& loosestLevel);
    Tree readSigned();
    Tree readPower();
    Tree readPrimary();
    Tree readGroup();
    Tree readName();
    Tree readVariable(const std::string& name, const Token& place);
    Tree readCall(std::string_view function);
    bool readArguments(Tree* arguments, const int& count);

    bool atSymbol(char sign) const;
    void advance();
    bool nest();
    bool openGroup();
    bool closeGroup();
    Tree fail(const ParseMessage::errorKinds& kind, const Token& place);
    Tree failHere();

    ExpressionLexer lexer;
    VariableLookUp lookUp;
    std::string_view text;
    Token token;                   // the one that is looked at
    Token previous;                // the one before it
    std::vector<Token> openGroups; // the parentheses that wait to be closed
    int nesting = 0;
    Error firstError;
};
