#pragma once

namespace curve_editor {

/// More digits behind the point are never shown: no double has them all, and an endless number of
/// them would fill the memory.
inline constexpr int mostDecimals = 99;

} // namespace curve_editor
