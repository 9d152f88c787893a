#pragma once

#include "curves/ControlSplineNode.h"

#include <QSet>

/// The keys of a selection, the current one included, for quick look-ups. Keys are compared as
/// pointers and never read through.
class ChosenKeys
{
public:
    explicit ChosenKeys(const ControlSplineNode& selection)
        : keys(selection.selectedPoints.cbegin(), selection.selectedPoints.cend())
    {
        keys.insert(selection.currentPoint);
        keys.remove(nullptr);
    }

    bool isEmpty() const { return keys.isEmpty(); }
    bool contains(const PointInfo* key) const { return keys.contains(key); }

private:
    QSet<const PointInfo*> keys;
};
