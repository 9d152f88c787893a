#pragma once

#include "core/PointInfo.h"
#include "core/RoundingNoise.h"

#include <algorithm>
#include <cmath>
#include <limits>

/// What a spline and its copies for other threads work out alike.
namespace spline_formulas {

inline constexpr double highest = std::numeric_limits<double>::max();

/// For sums of values that would leave the range of numbers; a power of two.
inline constexpr double smallScale = 0x1p-64;

/// The share of a cycle that counts as noise at most.
inline constexpr double greatestNoise = 1e-4;

inline bool isFinite(double number)
{
    return std::abs(number) <= highest;
}

inline bool isCurved(const PointInfo& key)
{
    return key.type == zk_spline::bezier || key.type == zk_spline::tcb;
}

/// A slope that is no finite number counts as level.
inline double finiteOrLevel(double slope)
{
    return isFinite(slope) ? slope : 0.0;
}

/// Rise over run; 0 where the run is no positive number.
inline double slopeOf(double rise, double run)
{
    return run > 0.0 && run <= highest ? rise / run : 0.0;
}

/// Between two values at the share `u` of the way, on a straight line.
inline double straightBetween(double left, double right, double u)
{
    return (1.0 - u) * left + u * right;
}

/// The same on a cubic curve whose rises over the whole way at the slopes of its two ends are
/// `out` and `in`, both times smallScale. Finite values have finite ones between them.
inline double curvedBetween(double left, double right, double out, double in, double u)
{
    const double straight = straightBetween(left, right, u);
    if (!isFinite(straight)) {
        return straight;
    }
    const double rise = smallScale * right - smallScale * left;
    const double rest = 1.0 - u;
    const double value = smallScale * left + u * u * (1.0 + 2.0 * rest) * rise +
                         (u * rest * rest * out - u * u * rest * in);
    return std::isnan(value) ? straight : std::clamp(value / smallScale, -highest, highest);
}

/// The value at some seconds from an end key, on the straight line with the slope there; level
/// where the slope is no finite number. `smallSlope` is the slope of values times smallScale.
inline double onTangent(double value, double slope, double smallSlope, double distance)
{
    if (slope == 0.0) {
        return value; // no slope times an endless time is still no rise
    }
    if (isFinite(slope)) {
        return value + slope * distance;
    }
    return isFinite(smallSlope) ? (smallScale * value + smallSlope * distance) / smallScale : value;
}

/// How far roundings may have moved a time within its cycle: those of the time itself, and once
/// for each round those of the two keys that make the period. They never swallow the cycle.
inline double noiseInCycle(double time, double rounds, double first, double last)
{
    const double farthestKey = std::max(std::abs(first), std::abs(last));
    const double ofTime = roundingNoise(std::max(std::abs(time), farthestKey));
    // Whole multiples of a power of two were not rounded on their way into the keys.
    const auto isExact = [](double key) {
        return std::abs(key) < 0x1p42 && std::round(key * 1024.0) == key * 1024.0;
    };
    const double ofPeriod = isExact(first) && isExact(last)
                                ? 0.0
                                : std::abs(rounds) * (roundingNoise(farthestKey) / 4.0);
    return std::min(ofTime + ofPeriod, (last - first) * greatestNoise);
}

/// A time outside of keys that repeat, as a time within them.
struct CyclePlace
{
    bool isKnown = false; ///< false where no period can be told
    double time = 0.0;    ///< first..last
    double noise = 0.0;   ///< how far a key may lie from it and still be meant
    double rounds = 0.0;  ///< whole periods from the keys to the time; negative before them

    CyclePlace(double moment, double first, double last)
    {
        const double period = last - first;
        const double distance = moment - first;
        if (!(period > 0.0) || !isFinite(period) || !isFinite(distance)) {
            return;
        }
        isKnown = true;
        double phase = std::fmod(distance, period);
        if (phase < 0.0) {
            phase += period;
        }
        noise = noiseInCycle(moment, distance / period, first, last);
        if (phase <= noise || period - phase <= noise) {
            phase = 0.0;
        }
        time = std::min(first + phase, last);
        rounds = std::round((distance - phase) / period);
    }
};

/// A value of the keys, raised by as many rounds; endless rounds of no rise are no rise, and so are
/// no rounds of an endless one.
inline double raised(double value, double rounds, double rise)
{
    return rise == 0.0 || rounds == 0.0 ? value : value + rounds * rise;
}

} // namespace spline_formulas
