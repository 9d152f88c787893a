#pragma once

#include "core/SplineBase.h"

#include <vector>

/// A key of its own, not yet in any spline.
inline PointInfo makeKey(double time, double value,
                         zk_spline::interpolationType type = zk_spline::linear)
{
    PointInfo key;
    key.time = time;
    key.value = value;
    key.type = type;
    return key;
}

/// Puts a copy of the key into the spline, which owns it.
inline PointInfo* put(SplineBase& spline, const PointInfo& key)
{
    return spline.addPointPtr(new PointInfo(key));
}

/// The times of the keys as they stand in the list.
inline std::vector<double> timesOf(SplineBase& spline)
{
    std::vector<double> times;
    for (const PointInfo* key : spline.getControlPoints()) {
        times.push_back(key->time);
    }
    return times;
}
