#pragma once

namespace curve_editor {

/// The visible part of the curves.
struct ViewRange
{
    double minX = -1.0; ///< left edge, seconds
    double maxX = 200.0;
    double minY = -1.0; ///< bottom edge, value
    double maxY = 1.0;
};

} // namespace curve_editor
