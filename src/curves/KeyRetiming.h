#pragma once

#include <vector>

class SplineBase;
struct PointInfo;

/// A key of a spline and the time, in seconds, that it is to have.
struct RetimedKey
{
    PointInfo* key; ///< not owned
    double time;
};

/// Gives keys new times and keeps the spline in order. All are keys of the spline, each once. The
/// effort for many keys does not hang on how far they go.
void retimeKeys(SplineBase& spline, const std::vector<RetimedKey>& keys);
