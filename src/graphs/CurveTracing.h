#pragma once

#include "core/PointInfo.h"

#include <algorithm>
#include <cstddef>
#include <vector>

/// Where a course has its points: on each key in view, and between two keys as many as the eye
/// tells apart. How a value follows from time and spline is the caller's.
namespace curve_tracing {

using Keys = std::vector<PointInfo*>;

/// Whether the way from one key to the next is a straight line, apart from what an expression adds.
bool isStraight(const PointInfo& left, const PointInfo& right);

/// How many steps a bend over so many logical pixels needs.
int stepsOver(const double& pixels);

/// The index of the first key that is not before the time; their number if all are.
std::size_t firstKeyFrom(const Keys& keys, const double& time);

/// The times of the tail, ascending: each pixel's and, of a spline that repeats itself, each
/// repeated key's, with one just before it for where the value jumps. `scale` is in pixels a
/// second.
void timesOfTail(const Keys& keys, const bool& repeats, const double& from, const double& to,
                 const double& scale, std::vector<double>& times);

/// A point of the course before it is held to the limits.
struct Moment
{
    double time;
    double raw; ///< the spline's own value, or where it jumps one of its values
};

/// Appends the moments of the course between two times within the keys. `isHeld` tells whether a
/// value is beyond the limits; with `bends` the course is no straight line between any two keys.
template <typename Spline, typename IsHeld>
void momentsOfKeys(const Keys& keys, const double& begin, const double& end, const bool& bends,
                   const double& scale, const Spline& spline, const IsHeld& isHeld,
                   std::vector<Moment>& moments)
{
    const auto ask = [&](const double& time) { moments.push_back({time, spline(time)}); };
    std::size_t i = firstKeyFrom(keys, begin);
    if (i < keys.size() && keys[i]->time == begin) {
        moments.push_back({begin, keys[i]->value});
    } else {
        ask(begin);
        i = std::max<std::size_t>(i, 1) - 1;
    }
    for (; i + 1 < keys.size() && keys[i]->time <= end; ++i) {
        const PointInfo& left = *keys[i];
        const PointInfo& right = *keys[i + 1];
        const double from = std::max(left.time, begin);
        const double to = std::min(right.time, end);
        const double run = to - from;
        const bool isStep = left.type == zk_spline::stepped;
        const bool isOneLine = !bends && (isStep || isStraight(left, right)) &&
                               !isHeld(left.value) && !isHeld(right.value);
        const int steps = isOneLine || !(run > 0.0) ? 1 : stepsOver(run * scale);
        for (int k = 1; k < steps; ++k) {
            ask(from + run * k / steps);
        }
        if (right.time > end) {
            ask(end);
        } else if (right.time >= begin) {
            if (isStep) {
                moments.push_back({to, left.value});
            }
            moments.push_back({to, right.value});
        }
    }
}

} // namespace curve_tracing
