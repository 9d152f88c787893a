#include "core/ExpressionLexer.h"

#include <charconv>
#include <system_error>

namespace {

// Written out, since the functions of <cctype> ask the locale.
bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool startsName(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 128;
}

bool continuesName(char c)
{
    return startsName(c) || isDigit(c) || c == '.';
}

constexpr std::string_view symbols = "(),+-*/^<>=&|";

} // namespace

ExpressionLexer::ExpressionLexer(std::string_view expressionText)
    : text(expressionText)
{}

ExpressionLexer::Token ExpressionLexer::next()
{
    while (position < text.size() && isBlank(text[position])) {
        ++position;
    }
    if (position == text.size()) {
        return {end, position, 0};
    }
    const char first = text[position];
    const bool pointAndDigit =
        first == '.' && position + 1 < text.size() && isDigit(text[position + 1]);
    if (isDigit(first) || pointAndDigit) {
        return readNumber();
    }
    return startsName(first) ? readName() : readSymbol();
}

ExpressionLexer::Token ExpressionLexer::readNumber()
{
    Token token{number, position, 0};
    const char* begin = text.data() + position;
    const std::from_chars_result result =
        std::from_chars(begin, text.data() + text.size(), token.value);
    if (result.ec != std::errc()) {
        token.kind = invalid;
    }
    token.length = static_cast<std::size_t>(result.ptr - begin);
    position += token.length;
    return token;
}

ExpressionLexer::Token ExpressionLexer::readName()
{
    Token token{name, position, 0};
    while (position < text.size() && continuesName(text[position])) {
        ++position;
    }
    token.length = position - token.start;
    return token;
}

ExpressionLexer::Token ExpressionLexer::readSymbol()
{
    Token token{symbol, position, 1};
    token.sign = text[position];
    if (symbols.find(token.sign) == std::string_view::npos) {
        token.kind = invalid;
    }
    if (text.substr(position, 2) == "&&") {
        token.length = 2;
    }
    position += token.length;
    return token;
}
