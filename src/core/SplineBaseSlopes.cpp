// Slopes and bounds of the values.

#include "core/Ease.h"
#include "core/SamplerKeys.h"
#include "core/SplineBase.h"
#include "core/SplineFormulas.h"

#include <algorithm>
#include <cmath>

using namespace spline_formulas;

double SplineBase::derivative(const double& time) const
{
    if (std::isnan(time)) {
        return time;
    }
    if (controlPoints.empty()) {
        return 0.0;
    }
    const double first = controlPoints.front()->time;
    const double last = controlPoints.back()->time;
    // A last key whose time is no number ends nothing.
    const bool isPastEnd = time >= last || (std::isnan(last) && time == HUGE_VAL);
    if (time >= first && !isPastEnd) {
        return slopeInSegment(segmentAt(time), time);
    }
    const bool isBefore = !isPastEnd;
    switch (isBefore ? firstType : lastType) {
    case loop:
    case loopOffset: {
        const CyclePlace place(time, first, last);
        return place.isKnown ? slopeInSegment(segmentAt(place.time), place.time) : 0.0;
    }
    case followTangent: {
        const double slope = endSlope(isBefore, 1.0);
        return isFinite(slope) ? slope : finiteOrLevel(endSlope(isBefore, smallScale)) / smallScale;
    }
    default:
        return 0.0;
    }
}

double SplineBase::slopeInSegment(std::size_t index, double time) const
{
    if (index + 1 >= controlPoints.size()) {
        return 0.0;
    }
    const PointInfo& left = *controlPoints[index];
    const PointInfo& right = *controlPoints[index + 1];
    const double run = right.time - left.time;
    if (left.type == zk_spline::stepped || !(run > 0.0) || !isFinite(run)) {
        return 0.0;
    }
    const Ease ease(left.tcb.easeFrom, right.tcb.easeTo);
    const double share = (time - left.time) / run;
    const double speed = ease.isNone() ? 1.0 : ease.speed(share);
    const double way = ease.way(share);
    const auto slopeAt = [&](double scale) {
        const double rise = scale * right.value - scale * left.value;
        if (!isCurvedSegment(index)) {
            return speed * rise / run / scale;
        }
        const double out = finiteOrLevel(outgoingSlope(index, scale)) * run;
        const double in = finiteOrLevel(incomingSlope(index + 1, scale)) * run;
        const double bend2 = 3.0 * rise - 2.0 * out - in;
        const double bend3 = out + in - 2.0 * rise;
        return speed * (out + way * (2.0 * bend2 + way * 3.0 * bend3)) / run / scale;
    };
    const bool isInRange = !isCurvedSegment(index) || (isFinite(outgoingSlope(index, 1.0)) &&
                                                       isFinite(incomingSlope(index + 1, 1.0)));
    const double slope = slopeAt(1.0);
    return isInRange && isFinite(slope) ? slope : slopeAt(smallScale);
}

ValueBounds SplineBase::bounds(const double& from, const double& to) const
{
    if (std::isnan(from) || std::isnan(to)) {
        return ValueBounds();
    }
    const double earliest = std::min(from, to);
    const double latest = std::max(from, to);
    if (controlPoints.empty() || !(earliest >= controlPoints.front()->time) ||
        !(latest <= controlPoints.back()->time)) {
        return SamplerKeys(*this).bounds(earliest, latest);
    }
    // The keys of the stretch alone, with one more on either side that lends its slope.
    const std::size_t begin = std::max<std::size_t>(segmentAt(earliest), 1) - 1;
    const std::size_t end = std::min(segmentAt(latest) + 3, controlPoints.size());
    SplineBase stretch;
    for (std::size_t key = begin; key < end; ++key) {
        stretch.addPointPtr(new PointInfo(*controlPoints[key]));
    }
    return SamplerKeys(stretch).bounds(earliest, latest);
}
