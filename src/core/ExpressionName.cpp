#include "core/ExpressionName.h"

#include "core/ExpressionTables.h"

#include <algorithm>

namespace {

constexpr char quote = '\'';
constexpr char backslash = '\\';
constexpr char letterOfBlank = 's';
constexpr std::string_view noBreakSpace = "\xc2\xa0"; // in UTF-8

// Written out, since the functions of <cctype> ask the locale.
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

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < ' ' || c == '\x7f';
}

} // namespace

namespace expression_name {

bool isPlain(std::string_view name)
{
    return !name.empty() && plainLength(name, 0) == name.size();
}

std::string written(std::string_view name)
{
    if (isPlain(name)) {
        return std::string(name);
    }
    std::string text(1, quote);
    for (const char c : name) {
        if (c == quote || c == backslash || c == ' ') {
            text += backslash;
        }
        text += c == ' ' ? letterOfBlank : c;
    }
    return text + quote;
}

std::optional<std::string> readQuoted(std::string_view text)
{
    if (text.size() < 3 || text.front() != quote || text.back() != quote) {
        return std::nullopt;
    }
    std::string name;
    const std::size_t last = text.size() - 1;
    for (std::size_t at = 1; at < last; ++at) {
        char c = text[at];
        if (c == backslash) {
            c = text[++at];
            const bool isEscape = c == quote || c == backslash || c == letterOfBlank;
            if (!isEscape || at == last) {
                return std::nullopt;
            }
            c = c == letterOfBlank ? ' ' : c;
        } else if (c == quote || isControl(c)) {
            return std::nullopt;
        }
        name += c;
    }
    return name;
}

std::size_t quotedLength(std::string_view text, std::size_t start)
{
    std::size_t at = start + 1;
    while (at < text.size() && text[at] != quote) {
        at += text[at] == backslash ? 2 : 1;
    }
    return std::min(at + 1, text.size()) - start;
}

std::size_t plainLength(std::string_view text, std::size_t start)
{
    std::size_t at = start;
    while (at < text.size() && (at == start ? startsName(text[at]) : continuesName(text[at])) &&
           blankLength(text, at) == 0) {
        ++at;
    }
    return at - start;
}

std::size_t blankLength(std::string_view text, std::size_t start)
{
    if (start >= text.size()) {
        return 0;
    }
    const char c = text[start];
    if (c == ' ' || (c >= '\t' && c <= '\r')) {
        return 1;
    }
    return text.substr(start, noBreakSpace.size()) == noBreakSpace ? noBreakSpace.size() : 0;
}

bool isReachable(std::string_view name)
{
    return !name.empty() && !expression_tables::constant(name) &&
           std::none_of(name.begin(), name.end(), isControl);
}

} // namespace expression_name
