// A key on the curve as it is.

#include "core/SegmentSplit.h"
#include "core/SplineBase.h"
#include "core/SplineFormulas.h"

#include <algorithm>
#include <cmath>

namespace {

// Far below what the shape may change by, and far above what roundings make of a slope.
constexpr double likeSlopes = 1e-13;

bool isLike(double slope, double other)
{
    return std::abs(slope - other) <= likeSlopes * std::max(std::abs(slope), std::abs(other));
}

} // namespace

InsertedKey SplineBase::insertKey(const double& time)
{
    if (orderUpset) {
        restoreOrder();
    }
    if (controlPoints.empty() || !(time >= controlPoints.front()->time) ||
        !(time <= controlPoints.back()->time)) {
        return InsertedKey();
    }
    const std::size_t index = segmentAt(time);
    if (controlPoints[index]->time == time) {
        return {controlPoints[index], false, true, 0.0};
    }
    // A last key at the time would have been found: another one follows.
    PointInfo& left = *controlPoints[index];
    PointInfo& right = *controlPoints[index + 1];
    const bool isCurved = isCurvedSegment(index);
    const double leftIn = incomingSlope(index, 1.0);
    const double out = outgoingSlope(index, 1.0);
    const double in = incomingSlope(index + 1, 1.0);
    const double rightOut = outgoingSlope(index + 1, 1.0);
    const SegmentSplit split({left, right, isCurved, out, in}, time, (*this)(time));
    left.tcb.easeFrom = split.leftEaseFrom;
    right.tcb.easeTo = split.rightEaseTo;
    auto* const key = new PointInfo(split.key);
    insertNew(key);
    // Of a segment that is no curve the slopes shape nothing.
    holdSlopes(index, leftIn, isCurved ? split.leftOut : outgoingSlope(index, 1.0));
    holdSlopes(index + 2, isCurved ? split.rightIn : incomingSlope(index + 2, 1.0), rightOut);
    changed = true;
    return {key, true, split.keepsShape, split.error};
}

/// Sees to it that a Bezier or TCB key has these slopes.
void SplineBase::holdSlopes(std::size_t index, double incoming, double outgoing)
{
    PointInfo& key = *controlPoints[index];
    if (!spline_formulas::isCurved(key) || (isLike(incomingSlope(index, 1.0), incoming) &&
                                            isLike(outgoingSlope(index, 1.0), outgoing))) {
        return;
    }
    key.type = zk_spline::bezier;
    key.bezier = {incoming, outgoing};
    key.unifiedTangents = key.unifiedTangents && isLike(incoming, outgoing);
}
