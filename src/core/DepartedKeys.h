#pragma once

#include "core/PointInfo.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <unordered_map>
#include <utility>

/// The keys that have lately been taken out of a spline, so that one of them that comes back is
/// known again. Its record tells it from a new key that the allocator has put at its address.
class DepartedKeys
{
public:
    /// Notes a key that goes. Of very many the one that went first is forgotten.
    void note(const PointInfo* key, std::uint64_t serial);

    /// The serial of a key that comes back with the record with which it went, 0 for any other
    /// key. What is noted at this address is forgotten.
    std::uint64_t take(const PointInfo* key);

private:
    struct Departed
    {
        PointInfo record;
        std::uint64_t serial;
        std::uint64_t when;
    };

    std::unordered_map<const PointInfo*, Departed> keys;
    /// The order in which they went, and when; some may have come back since.
    std::deque<std::pair<const PointInfo*, std::uint64_t>> departures;
    std::uint64_t clock = 0;
};
