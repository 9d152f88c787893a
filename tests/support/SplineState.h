#pragma once

#include "core/SplineBase.h"

#include <array>
#include <cstring>
#include <vector>

/// All that a spline holds, bit for bit, in the order of its keys.
class SplineState
{
public:
    SplineState() = default;

    explicit SplineState(SplineBase& spline)
        : behaviours{spline.firstNodeType(), spline.lastNodeType()}
        , addFunc(spline.isAddFunc())
        , defaultValue(spline.getDefaultValue())
    {
        for (const PointInfo* point : spline.getControlPoints()) {
            keys.push_back(bitsOf(*point));
        }
    }

    bool operator==(const SplineState& other) const
    {
        return addFunc == other.addFunc && hasSameShape(other);
    }

    /// Whether the splines have the same values, with or without an expression added.
    bool hasSameShape(const SplineState& other) const
    {
        return keys == other.keys && behaviours == other.behaviours &&
               std::memcmp(&defaultValue, &other.defaultValue, sizeof defaultValue) == 0;
    }

    bool isAddFunc() const { return addFunc; }
    std::size_t keyCount() const { return keys.size(); }

    /// The fields of a key as bits, without the padding of the record.
    using Bits = std::array<unsigned long long, 11>;

    static Bits bitsOf(const PointInfo& point)
    {
        const double fields[] = {point.time,
                                 point.value,
                                 point.bezier.tangentLeft,
                                 point.bezier.tangentRight,
                                 point.tcb.tension,
                                 point.tcb.continuity,
                                 point.tcb.bias,
                                 point.tcb.easeTo,
                                 point.tcb.easeFrom};
        Bits bits{};
        static_assert(sizeof fields == 9 * sizeof bits[0]);
        std::memcpy(bits.data(), fields, sizeof fields);
        bits[9] = static_cast<unsigned long long>(point.type);
        bits[10] = point.unifiedTangents;
        return bits;
    }

private:
    std::vector<Bits> keys;
    std::array<SplineBase::nodeType, 2> behaviours{};
    bool addFunc = false;
    double defaultValue = 0.0;
};
