#pragma once

#include "core/SplineBase.h"
#include "curves/KeyRetiming.h"
#include "graphs/ControlSplineNode.h"

#include <QList>
#include <QPointF>

#include <vector>

/// Puts the selected keys that their spline holds where `placeOf` says.
template <class Place>
void placeKeys(const ControlSplineNode& selection, const Place& placeOf)
{
    const QList<PointInfo*> keys = selection.heldPoints();
    std::vector<RetimedKey> placed;
    placed.reserve(static_cast<std::size_t>(keys.size()));
    for (PointInfo* key : keys) {
        const QPointF place = placeOf(*key);
        key->value = place.y();
        placed.push_back({key, place.x()});
    }
    if (!placed.empty()) {
        retimeKeys(*selection.spline(), placed);
        selection.spline()->setChanged(true);
    }
}

/// By a way in seconds and units of value; the last key that was moved becomes current.
inline void shiftKeys(ControlSplineNode& selection, const QPointF& way)
{
    placeKeys(selection, [&way](const PointInfo& key) {
        return QPointF(key.time + way.x(), key.value + way.y());
    });
    const QList<PointInfo*> moved = selection.heldPoints();
    if (!moved.isEmpty()) {
        selection.setCurrentPoint(moved.last());
    }
}
