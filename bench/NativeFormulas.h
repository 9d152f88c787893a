#pragma once

#include <cmath>

// Not inlined: an expression is called, too.
[[gnu::noinline]] inline double nativeA(double t, double f)
{
    return std::sin(t * 2) * std::exp(-t / 5) + (f > 24 ? 1.0 : 0.0);
}

[[gnu::noinline]] inline double nativeB(double t, double f)
{
    return t * 2 - t / 5 + (f > 24 ? 1.0 : 0.0);
}
