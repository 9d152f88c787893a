#include "core/WordReader.h"

namespace {

constexpr std::size_t longestWord = 63;

bool isBlank(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

} // namespace

bool WordReader::fail(const std::string& problem)
{
    wrong = start;
    wrong.problem = problem;
    return false;
}

bool WordReader::readWord()
{
    using Traits = std::istream::traits_type;
    word.clear();
    start = here;
    if (!isReadable) {
        return fail("the text cannot be read");
    }
    std::streambuf& buffer = *stream.rdbuf();
    Traits::int_type next = buffer.sgetc();
    for (; !Traits::eq_int_type(next, Traits::eof()); next = buffer.snextc()) {
        const char character = Traits::to_char_type(next);
        if (isBlank(character) && !word.empty()) {
            return true;
        }
        if (!isBlank(character)) {
            start = word.empty() ? here : start;
            if (word.size() == longestWord) {
                return fail("a word is too long for a number");
            }
            word += character;
        }
        ++here.column;
        if (character == '\n') {
            ++here.line;
            here.column = 1;
        }
    }
    stream.setstate(word.empty() ? std::ios::eofbit | std::ios::failbit : std::ios::eofbit);
    if (word.empty()) {
        start = here;
        return fail("the text ends too early");
    }
    return true;
}
