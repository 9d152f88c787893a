#pragma once

#include "support/SplineState.h"

#include <cmath>
#include <limits>
#include <map>

/// A curve to the bit: its keys in their order, and its values at each key and just beside it.
class DraggedCurve
{
public:
    explicit DraggedCurve(SplineBase& spline)
        : state(spline)
    {
        const double endless = std::numeric_limits<double>::infinity();
        for (const PointInfo* key : spline.getControlPoints()) {
            keys.push_back(SplineState::bitsOf(*key));
            byKey[key] = keys.back();
            for (const double& time : {std::nextafter(key->time, -endless), key->time,
                                       std::nextafter(key->time, endless)}) {
                values.push_back(spline(time));
            }
        }
    }

    bool operator==(const DraggedCurve& other) const
    {
        return state == other.state && keys == other.keys && values == other.values;
    }

    /// Whether each key that both hold is the same in both; a host may free or add some.
    bool agreesWith(const DraggedCurve& other) const
    {
        for (const auto& [key, bits] : byKey) {
            const auto found = other.byKey.find(key);
            if (found != other.byKey.end() && found->second != bits) {
                return false;
            }
        }
        return true;
    }

private:
    SplineState state;
    std::vector<SplineState::Bits> keys;
    std::vector<double> values;
    std::map<const PointInfo*, SplineState::Bits> byKey; ///< by identity: not read through
};
