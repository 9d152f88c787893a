#pragma once

#include "core/InterpolationType.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace curve_editor {

/// The interpolations in the order in which a combo box lists them.
inline constexpr std::array<zk_spline::interpolationType, 4> interpolationOfPosition{
    zk_spline::tcb, zk_spline::bezier, zk_spline::linear, zk_spline::stepped};

inline bool isInterpolationPosition(int position)
{
    return position >= 0 && position < static_cast<int>(interpolationOfPosition.size());
}

/// 0 for a number that is none of the interpolations.
inline int positionOfInterpolation(int type)
{
    const auto found =
        std::find(interpolationOfPosition.begin(), interpolationOfPosition.end(), type);
    return found == interpolationOfPosition.end()
               ? 0
               : static_cast<int>(found - interpolationOfPosition.begin());
}

/// Sets `type` to that at the position; false, and nothing is set, where there is none.
inline bool setInterpolationAt(int position, int& type)
{
    if (!isInterpolationPosition(position)) {
        return false;
    }
    type = interpolationOfPosition[static_cast<std::size_t>(position)];
    return true;
}

} // namespace curve_editor
