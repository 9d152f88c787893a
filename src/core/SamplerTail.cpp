#include "core/SamplerTail.h"

#include "core/Ease.h"
#include "core/SmallSpline.h"
#include "core/SplineFormulas.h"

namespace {

/// The slope in which the keys begin or end, as far as ease lets it.
double endSlopeOf(const SplineBase& spline, bool isBefore, double scale)
{
    const unsigned count = spline.getControlPointsNumber();
    if (count == 1) {
        const PointInfo& key = *spline[0];
        const double slope = isBefore ? key.bezier.tangentRight : key.bezier.tangentLeft;
        return key.type == zk_spline::bezier ? scale * slope : 0.0;
    }
    const unsigned segment = isBefore ? 0 : count - 2;
    const PointInfo& left = *spline[segment];
    const PointInfo& right = *spline[segment + 1];
    const Ease ease(left.tcb.easeFrom, right.tcb.easeTo);
    const double speed = isBefore ? ease.speedAtStart() : ease.speedAtEnd();
    if (left.type == zk_spline::stepped || speed == 0.0) {
        return 0.0;
    }
    if (!spline_formulas::isCurved(left) || !spline_formulas::isCurved(right)) {
        return speed * spline_formulas::slopeOf(scale * right.value - scale * left.value,
                                                right.time - left.time);
    }
    const SmallSpline around(spline, segment, scale);
    return speed * (isBefore ? around.outgoingSlope() : around.incomingSlope());
}

} // namespace

SamplerTail::SamplerTail(const SplineBase& spline, bool isBefore)
    : behaviour(isBefore ? spline.firstNodeType() : spline.lastNodeType())
{
    const unsigned count = spline.getControlPointsNumber();
    if (count == 0) {
        behaviour = SplineBase::constant;
        endValue = spline.getDefaultValue();
        return;
    }
    const PointInfo& first = *spline[0];
    const PointInfo& last = *spline[count - 1];
    endTime = isBefore ? first.time : last.time;
    endValue = isBefore ? first.value : last.value;
    rise = last.value - first.value;
    endSlope = endSlopeOf(spline, isBefore, 1.0);
    smallSlope = endSlopeOf(spline, isBefore, spline_formulas::smallScale);
}

double SamplerTail::value(double time) const
{
    switch (behaviour) {
    case SplineBase::zero:
        return 0.0;
    case SplineBase::followTangent:
        return spline_formulas::onTangent(endValue, endSlope, smallSlope, time - endTime);
    default:
        return endValue;
    }
}

double SamplerTail::slope() const
{
    if (behaviour != SplineBase::followTangent) {
        return 0.0;
    }
    return spline_formulas::isFinite(endSlope)
               ? endSlope
               : spline_formulas::finiteOrLevel(smallSlope) / spline_formulas::smallScale;
}
