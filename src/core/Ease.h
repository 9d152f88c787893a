#pragma once

#include <algorithm>

/// How a segment slows down at its two ends: its speed grows evenly over the first share of the
/// time, falls evenly over the last, and stays even between.
class Ease
{
public:
    /// Shares are held to 0..1, NaN counts as 0; together they take up the whole time at most.
    Ease(const double& easeFrom, const double& easeTo)
        : from(held(easeFrom))
        , to(held(easeTo))
        , sum(from + to)
    {}

    /// The way covered after the share `u` of the time; both 0..1.
    double way(const double& u) const
    {
        if (sum == 0.0 || u <= 0.0 || u >= 1.0) {
            return u;
        }
        const double a = sum > 1.0 ? from / sum : from;
        const double b = sum > 1.0 ? to / sum : to;
        const double halfSpeed = 1.0 / (2.0 - a - b);
        if (u < a) {
            return halfSpeed * u * (u / a);
        }
        if (u < 1.0 - b) {
            return halfSpeed * (2.0 * u - a);
        }
        // b is not 0 here: u is below 1.
        return 1.0 - halfSpeed * (1.0 - u) * ((1.0 - u) / b);
    }

    /// Whether the speed is the same all the way.
    bool isNone() const { return sum == 0.0; }

    /// The speed after the share `u` of the time; 1 is that of a segment without ease.
    double speed(const double& u) const
    {
        const double a = sum > 1.0 ? from / sum : from;
        const double b = sum > 1.0 ? to / sum : to;
        const double topSpeed = 2.0 / (2.0 - a - b);
        if (u < a) {
            return topSpeed * (u / a);
        }
        return u <= 1.0 - b ? topSpeed : topSpeed * ((1.0 - u) / b);
    }

    /// The shares of the time at which the speed stops growing, and begins to fall.
    double endOfStart() const { return sum > 1.0 ? from / sum : from; }
    double startOfEnd() const { return 1.0 - (sum > 1.0 ? to / sum : to); }

    /// The speed at the very start and the very end; 1 is that of a segment without ease.
    double speedAtStart() const { return from > 0.0 ? 0.0 : 2.0 / (2.0 - to); }
    double speedAtEnd() const { return to > 0.0 ? 0.0 : 2.0 / (2.0 - from); }

private:
    static double held(const double& ease) { return ease > 0.0 ? std::min(ease, 1.0) : 0.0; }

    double from;
    double to;
    double sum;
};
