#include "core/SplineBase.h"

#include <algorithm>
#include <limits>

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

/// Rise over run; 0 where the run is no positive number.
double slopeOf(const double& rise, const double& run)
{
    return run > 0.0 && run <= std::numeric_limits<double>::max() ? rise / run : 0.0;
}

} // namespace

double SplineBase::getFactorL0(const PointInfo* point) const
{
    const PointInfo::TcbData& data = point->tcb;
    return (1.0 - data.tension) / 2.0 * (1.0 + data.continuity) * (1.0 + data.bias);
}

double SplineBase::getFactorL1(const PointInfo* point) const
{
    const PointInfo::TcbData& data = point->tcb;
    return (1.0 - data.tension) / 2.0 * (1.0 - data.continuity) * (1.0 - data.bias);
}

double SplineBase::getFactorR0(const PointInfo* point) const
{
    const PointInfo::TcbData& data = point->tcb;
    return (1.0 - data.tension) / 2.0 * (1.0 - data.continuity) * (1.0 + data.bias);
}

double SplineBase::getFactorR1(const PointInfo* point) const
{
    const PointInfo::TcbData& data = point->tcb;
    return (1.0 - data.tension) / 2.0 * (1.0 + data.continuity) * (1.0 - data.bias);
}

/// The slope of the straight line from the key at the index to the next one.
double SplineBase::chord(const std::size_t& index) const
{
    const PointInfo& left = *controlPoints[index];
    const PointInfo& right = *controlPoints[index + 1];
    return slopeOf(right.value - left.value, right.time - left.time);
}

/// Kochanek-Bartels over uneven gaps: the published weights hold for gaps of one length, so the
/// weighted rise is taken over the mean of the two gaps. At an end the one gap stands for both,
/// which keeps keys on a straight line on that line.
double SplineBase::tcbSlope(const std::size_t& index, const double& factor0,
                            const double& factor1) const
{
    const std::size_t last = controlPoints.size() - 1;
    if (last == 0) {
        return 0.0;
    }
    const std::size_t before = std::max<std::size_t>(index, 1) - 1;
    const std::size_t after = std::min(index, last - 1);
    const double rise0 = controlPoints[before + 1]->value - controlPoints[before]->value;
    const double rise1 = controlPoints[after + 1]->value - controlPoints[after]->value;
    const double run0 = controlPoints[before + 1]->time - controlPoints[before]->time;
    const double run1 = controlPoints[after + 1]->time - controlPoints[after]->time;
    return slopeOf(2.0 * (factor0 * rise0 + factor1 * rise1), run0 + run1);
}

/// The slope with which a Bezier or TCB key takes the curve in.
double SplineBase::incomingSlope(const std::size_t& index) const
{
    const PointInfo* const key = controlPoints[index];
    return key->type == zk_spline::bezier ? key->bezier.tangentLeft
                                          : tcbSlope(index, getFactorR0(key), getFactorR1(key));
}

/// The slope with which a Bezier or TCB key sends the curve on.
double SplineBase::outgoingSlope(const std::size_t& index) const
{
    const PointInfo* const key = controlPoints[index];
    return key->type == zk_spline::bezier ? key->bezier.tangentRight
                                          : tcbSlope(index, getFactorL0(key), getFactorL1(key));
}

double SplineBase::getTangentLeftAtNode(const unsigned& index, double& len) const
{
    return handleSlope(index, false, len);
}

double SplineBase::getTangentRightAtNode(const unsigned& index, double& len) const
{
    // Index 0 wraps to one that is out of range for certain.
    return handleSlope(static_cast<std::size_t>(index) - 1, true, len);
}

double SplineBase::handleSlope(const std::size_t& index, const bool& outgoing, double& len) const
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
        return outgoing ? outgoingSlope(index) : incomingSlope(index);
    default: {
        if (count < 2) {
            return 0.0;
        }
        const std::size_t segment = outgoing ? index : std::max<std::size_t>(index, 1) - 1;
        return chord(std::min(segment, count - 2));
    }
    }
}
