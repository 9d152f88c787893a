#pragma once

#include "graphs/ControlSplineNode.h"

#include <QSet>

/// The keys of a selection that its spline holds, the current one included, for quick look-ups
/// while nothing is edited.
class ChosenKeys
{
public:
    explicit ChosenKeys(const ControlSplineNode& selection)
    {
        const QList<PointInfo*> held = selection.heldPoints();
        keys = QSet<const PointInfo*>(held.cbegin(), held.cend());
        keys.insert(selection.heldCurrent());
        keys.remove(nullptr);
    }

    bool isEmpty() const { return keys.isEmpty(); }
    bool contains(const PointInfo* key) const { return keys.contains(key); }

private:
    QSet<const PointInfo*> keys;
};
