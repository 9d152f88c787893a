#pragma once

namespace curve_editor {

/// The rectangle that a view may become, or that selects keys. While it is dragged its corners may
/// be the wrong way round.
struct CandidateRect
{
    double newMinX = -1.0; ///< first corner: seconds and value
    double newMaxY = -1.0;
    double newMaxX = 200.0; ///< second corner
    double newMinY = 1.0;
    double minRectFraction = static_cast<double>(0.05f); ///< smallest rectangle, share of the view
    bool rectValid = false;                              ///< it passed the last check
    bool rectActive = false;                             ///< it is being dragged or checked
};

} // namespace curve_editor
