#pragma once

#include "core/SplineReadResult.h"

#include <charconv>
#include <istream>
#include <string>
#include <system_error>

/// Reads words parted by blanks from a stream, and knows where each one stands. It takes no more
/// from the stream than it gives out.
class WordReader
{
public:
    explicit WordReader(std::istream& source)
        : stream(source)
        , isReadable(std::istream::sentry(source, true))
    {
        here.line = 1;
        here.column = 1;
    }

    /// Reads the next word, which must be a number from its first to its last character.
    template <typename Number>
    bool readNumber(Number& number)
    {
        if (!readWord()) {
            return false;
        }
        const char* const end = word.data() + word.size();
        const auto result = std::from_chars(word.data(), end, number);
        if (result.ec == std::errc() && result.ptr == end) {
            return true;
        }
        return fail("\"" + word + "\" is no number that belongs here");
    }

    /// Notes what is wrong with the last word; false.
    bool fail(const std::string& problem);

    /// What is wrong; nothing as long as all went well.
    const SplineReadResult& failure() const { return wrong; }

private:
    bool readWord();

    std::istream& stream; ///< not owned
    bool isReadable;
    std::string word;
    SplineReadResult here;  ///< the place of what comes next
    SplineReadResult start; ///< the place of the word
    SplineReadResult wrong;
};
