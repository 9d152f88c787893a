#pragma once

/// The trace facility: takes a format and its arguments and does nothing with them. No text of
/// it reaches the user or a file.
template <typename... Arguments>
inline void trace(const char* /*format*/, const Arguments&... /*arguments*/)
{}
