#pragma once

#include "core/SplineBase.h"
#include "curves/KeyRetiming.h"

#include <QList>
#include <QPointF>

#include <vector>

/// Puts several keys of one spline where `placeOf` says; those that have left it are passed over.
template <class Place>
void placeKeys(SplineBase& spline, const QList<PointInfo*>& keys, const Place& placeOf)
{
    std::vector<RetimedKey> placed;
    placed.reserve(static_cast<std::size_t>(keys.size()));
    for (PointInfo* key : keys) {
        if (spline.findIndex(key) >= 0) {
            const QPointF place = placeOf(*key);
            key->value = place.y();
            placed.push_back({key, place.x()});
        }
    }
    if (!placed.empty()) {
        retimeKeys(spline, placed);
        spline.setChanged(true);
    }
}

/// By a way in seconds and units of value. Keys of equal time keep their order.
inline void shiftKeys(SplineBase& spline, const QList<PointInfo*>& keys, const QPointF& way)
{
    placeKeys(spline, keys, [&way](const PointInfo& key) {
        return QPointF(key.time + way.x(), key.value + way.y());
    });
}
