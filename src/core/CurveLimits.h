#pragma once

/// Holds a curve's value between its two limits; NaN passes unchanged.
inline double clampToLimits(const double& value, const float& minimum, const float& maximum)
{
    const double lowest = static_cast<double>(minimum);
    const double highest = static_cast<double>(maximum);
    if (value < lowest) {
        return lowest;
    }
    return value > highest ? highest : value;
}
