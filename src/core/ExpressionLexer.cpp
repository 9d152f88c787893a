#include "core/ExpressionLexer.h"

#include "core/ExpressionName.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

constexpr std::string_view symbols = "(),+-*/^<>=&|";

// Where the first digit that counts stands, as a power of ten, of a number without its exponent.
std::ptrdiff_t leadingPower(std::string_view digits)
{
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = digits.find_first_of("123456789");
    if (first == std::string_view::npos) {
        return 0;
    }
    const auto power = static_cast<std::ptrdiff_t>(point) - static_cast<std::ptrdiff_t>(first);
    return power > 0 ? power - 1 : power;
}

// Of a number beyond the range, whether it is so small. Both parts may be as long as the text, but
// one too long for an integer can only be the exponent.
bool isUnderflow(std::string_view number)
{
    const std::size_t exponentAt = std::min(number.find_first_of("eE"), number.size());
    const std::ptrdiff_t leading = leadingPower(number.substr(0, exponentAt));
    std::string_view exponent = number.substr(std::min(exponentAt + 1, number.size()));
    if (!exponent.empty() && exponent.front() == '+') {
        exponent.remove_prefix(1);
    }
    long long power = 0;
    const std::from_chars_result result =
        std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
    if (result.ec == std::errc::result_out_of_range) {
        return exponent.front() == '-';
    }
    return power < -leading;
}

} // namespace

ExpressionLexer::ExpressionLexer(std::string_view expressionText)
    : text(expressionText)
{}

ExpressionLexer::Token ExpressionLexer::next()
{
    while (const std::size_t blank = expression_name::blankLength(text, position)) {
        position += blank;
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
    if (first == '\'') {
        return readQuotedName();
    }
    const std::size_t length = expression_name::plainLength(text, position);
    return length > 0 ? readName(length) : readSymbol();
}

std::string ExpressionLexer::nameOf(const Token& token) const
{
    const std::string_view written = text.substr(token.start, token.length);
    return token.isQuoted ? *expression_name::readQuoted(written) : std::string(written);
}

ExpressionLexer::Token ExpressionLexer::readNumber()
{
    Token token{number, position, 0};
    const char* begin = text.data() + position;
    const std::from_chars_result result =
        std::from_chars(begin, text.data() + text.size(), token.value);
    token.length = static_cast<std::size_t>(result.ptr - begin);
    if (result.ec != std::errc()) {
        token.kind = isUnderflow(text.substr(position, token.length)) ? number : invalid;
        token.value = 0.0;
    }
    position += token.length;
    return token;
}

ExpressionLexer::Token ExpressionLexer::readName(std::size_t length)
{
    Token token{name, position, length};
    position += length;
    return token;
}

ExpressionLexer::Token ExpressionLexer::readQuotedName()
{
    Token token{name, position, expression_name::quotedLength(text, position)};
    token.isQuoted = true;
    if (!expression_name::readQuoted(text.substr(position, token.length))) {
        token.kind = invalid;
    }
    position += token.length;
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
