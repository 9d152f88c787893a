// What a spline is before its first key and after its last.

#include "core/EvaluationTime.h"
#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"

#include <algorithm>
#include <cmath>

double SplineBase::operator()(const double& time, FunctionFloatBase* expression,
                              const double& fps) const
{
    const double splineValue = (*this)(time);
    if (expression == nullptr) {
        return splineValue;
    }
    const EvaluationTime moment(time, fps);
    return splineValue + expression->value();
}

double SplineBase::valueOutside(const double& time, const nodeType& behaviour,
                                const bool& before) const
{
    if (std::isnan(time)) {
        return time;
    }
    const PointInfo& end = before ? *controlPoints.front() : *controlPoints.back();
    switch (behaviour) {
    case zero:
        return 0.0;
    case loop:
        return valueLooped(time, end, false);
    case loopOffset:
        return valueLooped(time, end, true);
    case followTangent: {
        // No slope times an endless time is still no rise.
        const double slope = endSlope(before);
        return slope == 0.0 ? end.value : end.value + slope * (time - end.time);
    }
    case constant:
    default:
        return end.value;
    }
}

/// `end` is the key next to the time; its value stands where no period can be told.
double SplineBase::valueLooped(const double& time, const PointInfo& end,
                               const bool& withOffset) const
{
    const PointInfo& first = *controlPoints.front();
    const PointInfo& last = *controlPoints.back();
    const double period = last.time - first.time;
    const double distance = time - first.time;
    if (!(period > 0.0) || !std::isfinite(period) || !std::isfinite(distance)) {
        return end.value;
    }
    double phase = std::fmod(distance, period);
    if (phase < 0.0) {
        phase += period;
    }
    const double value = (*this)(std::min(first.time + phase, last.time));
    const double rise = last.value - first.value;
    if (!withOffset || rise == 0.0) {
        return value; // endless rounds of no rise are no rise either
    }
    return value + std::round((distance - phase) / period) * rise;
}

/// The slope in which the keys begin or end: of the curved segment there, or of its straight line.
double SplineBase::endSlope(const bool& before) const
{
    const std::size_t count = controlPoints.size();
    if (count == 1) {
        const PointInfo& key = *controlPoints.front();
        const double slope = before ? key.bezier.tangentRight : key.bezier.tangentLeft;
        return key.type == zk_spline::bezier ? slope : 0.0;
    }
    const std::size_t segment = before ? 0 : count - 2;
    const PointInfo& left = *controlPoints[segment];
    if (left.type == zk_spline::stepped) {
        return 0.0;
    }
    if (!isCurvedSegment(segment)) {
        return chord(segment);
    }
    return before ? outgoingSlope(0) : incomingSlope(count - 1);
}
