#pragma once

#include "core/InterpolationType.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace curve_editor {

/// The interpolations in the order in which a combo box lists them.
inline constexpr std::array<zk_spline::interpolationType, 4> nodeTypeOfPosition{
    zk_spline::tcb, zk_spline::bezier, zk_spline::linear, zk_spline::stepped};

inline bool isNodeTypePosition(const int& position)
{
    return position >= 0 && position < static_cast<int>(nodeTypeOfPosition.size());
}

/// 0 for a number that is none of the interpolations.
inline int positionOfNodeType(const int& type)
{
    const auto found = std::find(nodeTypeOfPosition.begin(), nodeTypeOfPosition.end(), type);
    return found == nodeTypeOfPosition.end() ? 0
                                             : static_cast<int>(found - nodeTypeOfPosition.begin());
}

/// Sets `type` to that at the position; false, and nothing is set, where there is none.
inline bool setNodeTypeAt(int position, int& type)
{
    if (!isNodeTypePosition(position)) {
        return false;
    }
    type = nodeTypeOfPosition[static_cast<std::size_t>(position)];
    return true;
}

} // namespace curve_editor
