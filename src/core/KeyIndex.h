#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

/// Finds the key at a time: a table over evenly cut stretches of time tells which few keys come
/// into question, and a search without branches decides between them. With even gaps that takes as
/// long for a million keys as for ten, and never longer than a search through all of them.
class KeyIndex
{
public:
    /// Times ascend; NaN stands behind all numbers.
    explicit KeyIndex(const std::vector<double>& keyTimes);

    /// The last key at or before the time, which is not before the first key nor after the last.
    std::size_t at(const double& time) const
    {
        const std::size_t stretch = stretchOf(time);
        std::size_t base = firstKeys[stretch];
        std::size_t length = firstKeys[stretch + 1] - base + 1;
        while (length > 1) {
            const std::size_t half = length / 2;
            base = times[base + half] <= time ? base + half : base;
            length -= half;
        }
        return base;
    }

    const std::vector<double>& keyTimes() const { return times; }

private:
    // Any way of rounding will do as long as a later time gets no earlier stretch, so the low bits
    // of a number in 2^52..2^53 do: they count its units. NaN falls to the last.
    std::size_t stretchOf(const double& time) const
    {
        constexpr double unitsFrom = 0x1p52;
        const double place = (time - start) * stretchesPerSecond;
        const double held = place < lastStretch ? place : lastStretch;
        const double shifted = unitsFrom + held;
        std::uint64_t bits = 0;
        std::memcpy(&bits, &shifted, sizeof bits);
        return static_cast<std::uint32_t>(bits);
    }

    std::vector<double> times;
    // The last key of all earlier stretches, or the first key of all; one more than stretches.
    std::vector<std::uint32_t> firstKeys;
    double start = 0.0;
    double stretchesPerSecond = 0.0;
    double lastStretch = 0.0;
};
