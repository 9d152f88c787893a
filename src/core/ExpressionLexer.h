#pragma once

#include <cstddef>
#include <string_view>

/// Cuts the text of an expression into tokens.
class ExpressionLexer
{
public:
    enum tokenKind : int
    {
        end,     ///< behind the last token; its span is empty
        number,  ///< in the range of a double
        name,    ///< letters, digits, "_", "." and bytes from 128 on; no digit or "." in front
        symbol,  ///< one of ( ) , + - * / ^ < > = & |
        invalid, ///< anything else, and numbers out of range
    };

    struct Token
    {
        tokenKind kind = end;
        std::size_t start = 0;
        std::size_t length = 0;
        double value = 0.0; ///< of a number
        char sign = '\0';   ///< of a symbol; "&&" gives '&'
    };

    /// The text must outlive the lexer.
    explicit ExpressionLexer(std::string_view expressionText);

    Token next();

private:
    Token readNumber();
    Token readName();
    Token readSymbol();

    std::string_view text;
    std::size_t position = 0;
};
