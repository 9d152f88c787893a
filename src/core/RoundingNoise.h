#pragma once

#include <cmath>
#include <limits>

/// How far a number of this size may lie from the one it stands for, after the few roundings that
/// a frame takes to become a time and to be looked up: four to eight units in its last place.
inline double roundingNoise(const double& size)
{
    return 4.0 * std::numeric_limits<double>::epsilon() * std::abs(size);
}

/// The frame of a time in seconds. A time that was made of a whole frame gives that frame.
inline double frameAt(const double& time, const double& fps)
{
    const double frame = time * fps;
    const double whole = std::round(frame);
    return std::abs(frame - whole) <= roundingNoise(whole) ? whole : frame;
}
