#pragma once

#include "core/PointInfo.h"

#include <cmath>

/// The order of keys in time. NaN stands behind all numbers, so that a list that holds one can
/// still be searched and sorted.
inline bool isBefore(const double& time, const double& other)
{
    return time < other || (std::isnan(other) && !std::isnan(time));
}

/// The same for the standard algorithms, between keys and times in any pairing.
struct TimeOrder
{
    bool operator()(const PointInfo* point, const PointInfo* other) const
    {
        return isBefore(point->time, other->time);
    }
    bool operator()(const PointInfo* point, const double& time) const
    {
        return isBefore(point->time, time);
    }
    bool operator()(const double& time, const PointInfo* point) const
    {
        return isBefore(time, point->time);
    }
};
