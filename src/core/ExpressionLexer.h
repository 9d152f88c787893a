#pragma once

#include "zk_curve_core_export.h"

#include <cstddef>
#include <string>
#include <string_view>

/// Cuts the text of an expression into tokens.
class ZK_CURVE_CORE_EXPORT ExpressionLexer
{
public:
    enum tokenKind : int
    {
        end,     ///< behind the last token; its span is empty
        number,  ///< in the range of a double; one too small for it is 0
        name,    ///< plain or in quotes, see expression_name
        symbol,  ///< one of ( ) , + - * / ^ < > = & |
        invalid, ///< anything else, and numbers too great
    };

    struct Token
    {
        tokenKind kind = end;
        std::size_t start = 0;
        std::size_t length = 0;
        double value = 0.0;    ///< of a number
        char sign = '\0';      ///< of a symbol; "&&" gives '&'
        bool isQuoted = false; ///< a name between quotes, which are part of the span
    };

    /// The text must outlive the lexer.
    explicit ExpressionLexer(std::string_view expressionText);

    Token next();

    /// The name that a token of kind name spells.
    std::string nameOf(const Token& token) const;

private:
    Token readNumber();
    Token readName(std::size_t length);
    Token readQuotedName();
    Token readSymbol();

    std::string_view text;
    std::size_t position = 0;
};
