#include "graphs/CurveTracing.h"

#include "core/Truncate.h"

#include <cmath>

namespace {

// Narrower bends than this cannot be told from a line.
constexpr double narrow = 0.5;
constexpr int fewestSteps = 4; ///< of a bend wider than two pixels
constexpr int someSteps = 12;  ///< of one wider than a few
constexpr int mostSteps = 10000;
// Of logical pixels: how far before a jump its first end is asked for.
constexpr double justBefore = 0.01;
// More cycles than this in view, or keys in them, are not looked at one by one.
constexpr double mostRepeats = 5000.0;

bool isCurved(const PointInfo& key)
{
    return key.type == zk_spline::bezier || key.type == zk_spline::tcb;
}

} // namespace

bool curve_tracing::isStraight(const PointInfo& left, const PointInfo& right)
{
    const bool isEased = left.tcb.easeFrom != 0.0 || right.tcb.easeTo != 0.0;
    return !isEased && !(isCurved(left) && isCurved(right));
}

int curve_tracing::stepsOver(const double& pixels)
{
    if (!(pixels > narrow)) {
        return 1;
    }
    const int columns = truncateToInt(std::min<double>(pixels, mostSteps - 1)) + 1;
    if (pixels < 2.0) {
        return 2;
    }
    return std::max(columns, pixels < someSteps ? fewestSteps : someSteps);
}

std::size_t curve_tracing::firstKeyFrom(const Keys& keys, const double& time)
{
    const auto found =
        std::lower_bound(keys.cbegin(), keys.cend(), time,
                         [](const PointInfo* key, const double& t) { return key->time < t; });
    return static_cast<std::size_t>(found - keys.cbegin());
}

void curve_tracing::timesOfTail(const Keys& keys, const bool& repeats, const double& from,
                                const double& to, const double& scale, std::vector<double>& times)
{
    times.clear();
    const int steps = stepsOver((to - from) * scale);
    for (int i = 0; i <= steps; ++i) {
        times.push_back(from + (to - from) * i / steps);
    }
    const double first = keys.front()->time;
    const double period = keys.back()->time - first;
    const double cycles = (to - from) / period;
    if (!repeats || !(cycles * static_cast<double>(keys.size()) < mostRepeats)) {
        return;
    }
    const double firstCycle = std::floor((from - first) / period);
    for (int cycle = 0; cycle <= truncateToInt(cycles) + 1; ++cycle) {
        for (const PointInfo* key : keys) {
            const double time = key->time + (firstCycle + cycle) * period;
            const double before = time - justBefore / scale;
            if (before > from && time < to) {
                times.push_back(before);
                times.push_back(time);
            }
        }
    }
    std::sort(times.begin(), times.end());
}
