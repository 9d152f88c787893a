#pragma once

#include "core/SplineFormulas.h"

#include <algorithm>
#include <cmath>

/// The shares of the way, up to two, where a cubic is level: the zeros of its derivative.
struct LevelShares
{
    double share[2];
    int count = 0;

    LevelShares(double rise1, double rise2, double rise3)
    {
        // Scaled, so that no square leaves the range of numbers.
        const double size = std::max({std::abs(rise1), std::abs(rise2), std::abs(rise3)});
        if (!(size > 0.0) || !spline_formulas::isFinite(size)) {
            return;
        }
        const int power = -std::ilogb(size);
        rise1 = std::scalbn(rise1, power);
        rise2 = std::scalbn(rise2, power);
        rise3 = std::scalbn(rise3, power);
        // 3 rise3 u^2 + 2 rise2 u + rise1 = 0; of the two ways to write a zero the one that does
        // not take the difference of like numbers.
        const double root = std::sqrt(rise2 * rise2 - 3.0 * rise3 * rise1);
        const double sum = -(rise2 + std::copysign(root, rise2));
        add(sum / (3.0 * rise3));
        add(rise1 / sum);
    }

private:
    void add(double zero)
    {
        if (zero > 0.0 && zero < 1.0) {
            share[count++] = zero;
        }
    }
};
