#pragma once

#include <cstdint>

struct PointInfo;

/// A key by who it is. An address comes back with another key once its key is freed; a serial is
/// given to one key only, so this names the same key for good, or none any more:
/// `SplineBase::holds` tells whether the key is there to be read.
struct KeyRef
{
    PointInfo* key = nullptr; ///< not owned; perhaps freed
    std::uint64_t serial = 0; ///< 0 names no key

    bool operator==(const KeyRef& other) const
    {
        return key == other.key && serial == other.serial;
    }
    bool operator!=(const KeyRef& other) const { return !(*this == other); }
};
