#pragma once

#include "core/PointInfo.h"
#include "graphs/CurveCourse.h"

#include <algorithm>
#include <cmath>
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

/// Adds the course between two moments within the keys. `limitedAt` gives the value to draw from
/// the time and the spline's own value; with `bends` it is no straight line between any two keys.
template <typename Spline, typename LimitedAt>
void traceKeys(CurveCourse& course, const Keys& keys, const double& begin, const double& end,
               const bool& bends, const Spline& spline, const LimitedAt& limitedAt)
{
    const auto add = [&](const double& time, const double& raw) {
        course.add(time, limitedAt(time, raw), raw);
    };
    std::size_t i = firstKeyFrom(keys, begin);
    if (i < keys.size() && keys[i]->time == begin) {
        add(begin, keys[i]->value);
    } else {
        add(begin, spline(begin));
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
                               limitedAt(to, left.value) == left.value &&
                               limitedAt(to, right.value) == right.value;
        const int steps =
            isOneLine || !(run > 0.0) ? 1 : stepsOver(course.column(to) - course.column(from));
        for (int k = 1; k < steps; ++k) {
            const double time = from + run * k / steps;
            add(time, spline(time));
        }
        if (right.time > end) {
            add(end, spline(end));
        } else if (right.time >= begin) {
            if (isStep) {
                add(to, left.value);
            }
            add(to, right.value);
        }
    }
}

} // namespace curve_tracing
