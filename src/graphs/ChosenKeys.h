#pragma once

#include "graphs/ControlSplineNode.h"

#include <algorithm>
#include <functional>
#include <vector>

/// The keys of a selection that its spline holds, the current one included, for quick look-ups
/// while nothing is edited.
class ChosenKeys
{
public:
    explicit ChosenKeys(const ControlSplineNode& selection)
    {
        const QList<PointInfo*> held = selection.heldPoints();
        keys.assign(held.cbegin(), held.cend());
        if (const PointInfo* const current = selection.heldCurrent()) {
            keys.push_back(current);
        }
        std::sort(keys.begin(), keys.end(), std::less<>());
    }

    bool isEmpty() const { return keys.empty(); }
    bool contains(const PointInfo* key) const
    {
        return !keys.empty() && std::binary_search(keys.cbegin(), keys.cend(), key, std::less<>());
    }

private:
    std::vector<const PointInfo*> keys; ///< by their addresses
};
