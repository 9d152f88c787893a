// The slopes that handles show.

#include "core/SplineBase.h"

#include <algorithm>

namespace {

constexpr double plainHandle = 0.667;
constexpr double longestHandle = 2.0;

double handleLength(const PointInfo& key)
{
    if (key.type != zk_spline::tcb) {
        return plainHandle;
    }
    const double length = (1.0 - key.tcb.tension) / 2.0;
    return length > 0.0 ? std::min(length, longestHandle) : 0.0;
}

} // namespace

const double SplineBase::getTangentLeftAtNode(const unsigned& index, double& len) const
{
    return handleSlope(index, false, len);
}

const double SplineBase::getTangentRightAtNode(const unsigned& index, double& len) const
{
    // Index 0 wraps to one that is out of range for certain.
    return handleSlope(static_cast<std::size_t>(index) - 1, true, len);
}

double SplineBase::handleSlope(std::size_t index, const bool& outgoing, double& len) const
{
    len = plainHandle;
    const std::size_t count = controlPoints.size();
    if (index >= count) {
        return 0.0;
    }
    const PointInfo& key = *controlPoints[index];
    len = handleLength(key);
    switch (key.type) {
    case zk_spline::stepped:
        return 0.0;
    case zk_spline::bezier:
    case zk_spline::tcb:
        return outgoing ? outgoingSlope(index, 1.0) : incomingSlope(index, 1.0);
    default: {
        if (count < 2) {
            return 0.0;
        }
        const std::size_t segment = outgoing ? index : std::max<std::size_t>(index, 1) - 1;
        return chord(std::min(segment, count - 2), 1.0);
    }
    }
}
