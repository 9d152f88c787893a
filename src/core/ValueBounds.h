#pragma once

#include <limits>

/// The lowest and the highest of some values. Both are NaN as long as there was no number among
/// the values.
struct ValueBounds
{
    double lowest = std::numeric_limits<double>::quiet_NaN();
    double highest = std::numeric_limits<double>::quiet_NaN();

    /// Widens the bounds to hold the value; NaN does nothing.
    void take(const double& value)
    {
        if (!(lowest <= value)) {
            lowest = value == value ? value : lowest;
        }
        if (!(highest >= value)) {
            highest = value == value ? value : highest;
        }
    }

    /// Widens the bounds to hold others.
    void take(const ValueBounds& other)
    {
        take(other.lowest);
        take(other.highest);
    }
};
