#pragma once

#include "core/SplineBase.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

/// All that a spline holds and shows, bit for bit: its keys in their order, and the values at each
/// key's time, on both sides of it, between it and the next, and beyond the ends.
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
        for (const double& time : momentsOf(spline)) {
            values.push_back(bitsOf(spline(time)));
        }
    }

    bool operator==(const SplineState& other) const
    {
        return addFunc == other.addFunc && hasSameShape(other);
    }

    /// Whether the splines have the same keys and values, with or without an expression added.
    bool hasSameShape(const SplineState& other) const
    {
        return keys == other.keys && behaviours == other.behaviours &&
               bitsOf(defaultValue) == bitsOf(other.defaultValue) && values == other.values;
    }

    /// The times at which two splines are compared. Beside a key of a hard cut the value is that
    /// of the first of its keys on one side and that of the last on the other.
    static std::vector<double> momentsOf(SplineBase& spline)
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        const std::vector<PointInfo*>& points = spline.getControlPoints();
        std::vector<double> moments{0.0};
        for (std::size_t i = 0; i < points.size(); ++i) {
            const double time = points[i]->time;
            moments.insert(moments.end(),
                           {std::nextafter(time, -infinity), time, std::nextafter(time, infinity)});
            if (i + 1 < points.size()) {
                moments.push_back(time + (points[i + 1]->time - time) * 0.4);
            }
        }
        if (!points.empty()) {
            const double first = points.front()->time;
            const double last = points.back()->time;
            moments.insert(moments.end(), {first - 1.3, last + 1.3, last + (last - first) * 1.7});
        }
        return moments;
    }

    static unsigned long long bitsOf(const double& number)
    {
        unsigned long long bits = 0;
        static_assert(sizeof bits == sizeof number);
        std::memcpy(&bits, &number, sizeof bits);
        return bits;
    }

    bool isAddFunc() const { return addFunc; }

    /// Time and value of each key, and what else tells two states apart.
    std::string text() const
    {
        std::ostringstream text;
        for (const Bits& key : keys) {
            double place[2];
            std::memcpy(place, key.data(), sizeof place);
            text << " (" << place[0] << ", " << place[1] << ')';
        }
        unsigned long long sum = 0;
        for (const Bits& key : keys) {
            for (const unsigned long long& field : key) {
                sum = sum * 31 + field;
            }
        }
        text << ", fields " << sum % 10000 << ", ends " << behaviours[0] << ' ' << behaviours[1];
        return text.str();
    }

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
    std::vector<unsigned long long> values;
    std::array<SplineBase::nodeType, 2> behaviours{};
    bool addFunc = false;
    double defaultValue = 0.0;
};
