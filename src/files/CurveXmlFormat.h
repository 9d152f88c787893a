#pragma once

namespace curve_files {

/// The version that files are written in; files of a later one are refused.
inline constexpr const char* CURRENT_CURVE_VERSION = "1.0";

} // namespace curve_files
