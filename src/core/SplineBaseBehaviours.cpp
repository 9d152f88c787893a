// What a spline is before its first key and after its last.

#include "core/Ease.h"
#include "core/EvaluationTime.h"
#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"
#include "core/SplineFormulas.h"

#include <algorithm>
#include <cmath>

const double SplineBase::operator()(const double& time, FunctionFloatBase* expression,
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
    case followTangent:
        return valueOnTangent(time, end, before);
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
    const spline_formulas::CyclePlace place(time, first.time, last.time);
    if (!place.isKnown) {
        return end.value;
    }
    const double value = valueNear(place.time, place.noise);
    return withOffset ? spline_formulas::raised(value, place.rounds, last.value - first.value)
                      : value;
}

/// The value at a time, or at the key that lies within `noise` of it. The time is not outside of
/// the keys.
double SplineBase::valueNear(double time, double noise) const
{
    const std::size_t index = guessedSegmentAt(time);
    if (index + 1 >= controlPoints.size()) {
        return controlPoints[index]->value;
    }
    rememberSegment(index);
    const PointInfo& left = *controlPoints[index];
    const PointInfo& right = *controlPoints[index + 1];
    const double sinceLeft = time - left.time;
    const double untilRight = right.time - time;
    if (std::min(sinceLeft, untilRight) > noise) {
        return valueInSegment(index, time);
    }
    return (*this)(sinceLeft <= untilRight ? left.time : right.time);
}

/// The straight line from the end key into the distance.
double SplineBase::valueOnTangent(const double& time, const PointInfo& end,
                                  const bool& before) const
{
    const double slope = endSlope(before, 1.0);
    const double small = spline_formulas::isFinite(slope) ? slope : endSlope(before, smallScale);
    return spline_formulas::onTangent(end.value, slope, small, time - end.time);
}

/// The slope in which the keys begin or end: of the curved segment there, or of its straight line,
/// as far as ease lets it.
double SplineBase::endSlope(const bool& before, double scale) const
{
    const std::size_t count = controlPoints.size();
    if (count == 1) {
        const PointInfo& key = *controlPoints.front();
        const double slope = before ? key.bezier.tangentRight : key.bezier.tangentLeft;
        return key.type == zk_spline::bezier ? scale * slope : 0.0;
    }
    const std::size_t segment = before ? 0 : count - 2;
    const PointInfo& left = *controlPoints[segment];
    const PointInfo& right = *controlPoints[segment + 1];
    const Ease ease(left.tcb.easeFrom, right.tcb.easeTo);
    const double speed = before ? ease.speedAtStart() : ease.speedAtEnd();
    if (left.type == zk_spline::stepped || speed == 0.0) {
        return 0.0;
    }
    if (!isCurvedSegment(segment)) {
        return speed * chord(segment, scale);
    }
    return speed * (before ? outgoingSlope(0, scale) : incomingSlope(count - 1, scale));
}
