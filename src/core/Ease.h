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
    {
        const double sum = from + to;
        if (sum > 1.0) {
            from /= sum;
            to /= sum;
        }
    }

    /// The way covered after the share `u` of the time; both 0..1.
    double way(const double& u) const
    {
        if (from + to == 0.0 || u <= 0.0 || u >= 1.0) {
            return u;
        }
        if (u < from) {
            return halfSpeed() * u * (u / from);
        }
        if (u < 1.0 - to) {
            return halfSpeed() * (2.0 * u - from);
        }
        // `to` is not 0 here: u is below 1.
        return 1.0 - halfSpeed() * (1.0 - u) * ((1.0 - u) / to);
    }

    /// Whether the speed is the same all the way.
    bool isNone() const { return from + to == 0.0; }

    /// The speed after the share `u` of the time; 1 is that of a segment without ease.
    double speed(const double& u) const
    {
        if (u < from) {
            return 2.0 * halfSpeed() * (u / from);
        }
        return u <= 1.0 - to ? 2.0 * halfSpeed() : 2.0 * halfSpeed() * ((1.0 - u) / to);
    }

    /// The speed at the very start and the very end; 1 is that of a segment without ease.
    double speedAtStart() const { return from > 0.0 ? 0.0 : 2.0 * halfSpeed(); }
    double speedAtEnd() const { return to > 0.0 ? 0.0 : 2.0 * halfSpeed(); }

private:
    static double held(const double& ease) { return ease > 0.0 ? std::min(ease, 1.0) : 0.0; }

    double halfSpeed() const { return 1.0 / (2.0 - from - to); }

    double from;
    double to;
};
