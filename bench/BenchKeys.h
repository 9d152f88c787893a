#pragma once

#include "core/SplineBase.h"

#include <cmath>

/// The key at an index of a made-up curve: uneven gaps of about a second, all data set.
inline PointInfo benchKey(const unsigned& index, const zk_spline::interpolationType& type)
{
    PointInfo key;
    key.time = index + 0.3 * std::sin(index * 1.7);
    key.value = 10.0 * std::sin(index * 0.37);
    key.bezier = {std::cos(index * 0.9), std::cos(index * 1.1)};
    key.tcb.tension = 0.3 * std::sin(index * 0.5);
    key.tcb.bias = 0.3 * std::cos(index * 0.7);
    key.type = type;
    return key;
}

inline void addBenchKeys(SplineBase& spline, const unsigned& count,
                         const zk_spline::interpolationType& type)
{
    for (unsigned i = 0; i < count; ++i) {
        spline.addPointPtr(new PointInfo(benchKey(i, type)));
    }
}
