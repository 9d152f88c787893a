#pragma once

#include <QString>

namespace curve_editor {

/// Minutes, seconds and frames of a time in seconds, each `digits` wide; minutes don't roll over
/// to hours. `decimals` has no part in it. Numbers of any kind are borne.
QString timecodeText(double seconds, double fps, int decimals, int digits);

} // namespace curve_editor
