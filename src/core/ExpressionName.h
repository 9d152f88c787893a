#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// How expressions write the names of variables: plain, as in body.width, or between quotes. There
/// a quote is written \', a backslash \\ and a blank \s; a blank as it is is read as well.
namespace expression_name {

/// Letters, digits, "_", "." and bytes from 128 on, no digit or "." in front, no no-break space.
bool isPlain(std::string_view name);

/// Plain, or in quotes where the plain form would read back as anything else.
std::string written(std::string_view name);

/// What stands in the quotes; none where there is nothing, or anything that cannot stand there:
/// control characters, and a backslash before any other sign. Both quotes are part of the text.
std::optional<std::string> readQuoted(std::string_view text);

/// The length of the text in quotes that begins at this place, both quotes included; up to the end
/// of the text where the second one is missing.
std::size_t quotedLength(std::string_view text, std::size_t start);

/// The length of the plain name that begins at this place; 0 where none does.
std::size_t plainLength(std::string_view text, std::size_t start);

/// The length of the blank at this place, in bytes; 0 where there is none. A no-break space is one.
std::size_t blankLength(std::string_view text, std::size_t start);

/// Whether an expression can name a variable so: not empty, no constant, no control characters.
bool isReachable(std::string_view name);

} // namespace expression_name
