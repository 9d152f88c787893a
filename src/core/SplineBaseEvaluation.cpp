// The value within the keys.

#include "core/Ease.h"
#include "core/SplineBase.h"
#include "core/SplineFormulas.h"
#include "core/TcbTangents.h"

#include <algorithm>

// All that an evaluation within the keys runs through stands in this one file, for the compiler
// to make one function of.

namespace {

// With more keys than these a search waits for memory.
constexpr std::size_t keysInReach = 2000;

} // namespace

using namespace spline_formulas;

const double SplineBase::getFactorL0(const PointInfo* point) const
{
    return tcbFactorL0(point->tcb);
}

const double SplineBase::getFactorL1(const PointInfo* point) const
{
    return tcbFactorL1(point->tcb);
}

const double SplineBase::getFactorR0(const PointInfo* point) const
{
    return tcbFactorR0(point->tcb);
}

const double SplineBase::getFactorR1(const PointInfo* point) const
{
    return tcbFactorR1(point->tcb);
}

/// The slope of the straight line from the key at the index to the next one. As with all slopes
/// here, values are taken times `scale`.
double SplineBase::chord(std::size_t index, double scale) const
{
    const PointInfo& left = *controlPoints[index];
    const PointInfo& right = *controlPoints[index + 1];
    return slopeOf(scale * right.value - scale * left.value, right.time - left.time);
}

/// At an end the one gap stands for both, which keeps keys on a straight line on that line.
double SplineBase::tcbSlope(std::size_t index, double factor0, double factor1, double scale) const
{
    const std::size_t last = controlPoints.size() - 1;
    if (last == 0) {
        return 0.0;
    }
    const std::size_t before = std::max<std::size_t>(index, 1) - 1;
    const std::size_t after = std::min(index, last - 1);
    const double rise0 =
        scale * controlPoints[before + 1]->value - scale * controlPoints[before]->value;
    const double rise1 =
        scale * controlPoints[after + 1]->value - scale * controlPoints[after]->value;
    const double run0 = controlPoints[before + 1]->time - controlPoints[before]->time;
    const double run1 = controlPoints[after + 1]->time - controlPoints[after]->time;
    return slopeOverGaps(factor0 * rise0 + factor1 * rise1, run0, run1);
}

/// The slope with which a Bezier or TCB key takes the curve in.
double SplineBase::incomingSlope(std::size_t index, double scale) const
{
    const PointInfo* const key = controlPoints[index];
    return key->type == zk_spline::bezier
               ? scale * key->bezier.tangentLeft
               : tcbSlope(index, getFactorR0(key), getFactorR1(key), scale);
}

/// The slope with which a Bezier or TCB key sends the curve on.
double SplineBase::outgoingSlope(std::size_t index, double scale) const
{
    const PointInfo* const key = controlPoints[index];
    return key->type == zk_spline::bezier
               ? scale * key->bezier.tangentRight
               : tcbSlope(index, getFactorL0(key), getFactorL1(key), scale);
}

/// The last key at or before the time, which must not lie before the first key. The choice is
/// written so that it becomes a conditional move: a processor guesses every second branch on the
/// data wrong. In a long spline both keys that the next step may look at are fetched while this
/// one waits for its own.
std::size_t SplineBase::segmentAt(double time) const
{
    const PointInfo* const* const points = controlPoints.data();
    const PointInfo* const* base = points;
    std::size_t length = controlPoints.size();
    const bool fetchesAhead = length > keysInReach;
    while (length > 1) {
        const PointInfo* const* const middle = base + length / 2;
        length -= length / 2;
        if (fetchesAhead) {
            __builtin_prefetch(base[length / 2]);
            __builtin_prefetch(middle[length / 2]);
        }
        base = (*middle)->time <= time ? middle : base;
    }
    return static_cast<std::size_t>(base - points);
}

/// The same; whoever walks through a loop asks for the same segment again, or for the next one.
std::size_t SplineBase::guessedSegmentAt(double time) const
{
    const std::size_t guess = lastSegment.load(std::memory_order_relaxed);
    for (std::size_t index = guess; index < guess + 2 && index + 1 < controlPoints.size();
         ++index) {
        if (controlPoints[index]->time <= time && time < controlPoints[index + 1]->time) {
            return index;
        }
    }
    return segmentAt(time);
}

double SplineBase::valueWithin(double time) const
{
    const std::size_t index = segmentAt(time);
    if (index + 1 >= controlPoints.size()) {
        return controlPoints[index]->value;
    }
    rememberSegment(index);
    return valueInSegment(index, time);
}

/// The guess covers a segment and the next one: the last segment is kept as that next one.
void SplineBase::rememberSegment(std::size_t index) const
{
    // With less than three keys the difference wraps around, and no guess is looked at.
    lastSegment.store(std::min(index, controlPoints.size() - 3), std::memory_order_relaxed);
}

bool SplineBase::isCurvedSegment(std::size_t index) const
{
    return isCurved(*controlPoints[index]) && isCurved(*controlPoints[index + 1]);
}

/// Cubic Hermite between two curved keys, else a straight line, or a step.
[[gnu::flatten]] double SplineBase::valueInSegment(std::size_t index, double time) const
{
    const PointInfo& left = *controlPoints[index];
    const PointInfo& right = *controlPoints[index + 1];
    const double run = right.time - left.time;
    if (left.type == zk_spline::stepped || !(run > 0.0) || !(run <= highest)) {
        return left.value;
    }
    const double u = Ease(left.tcb.easeFrom, right.tcb.easeTo).way((time - left.time) / run);
    const double rise = right.value - left.value;
    if (!isCurvedSegment(index)) {
        const double value = left.value + u * rise;
        return isFinite(value) ? value : valueBeyondRange(index, time);
    }
    const bool isInner = index > 0 && index + 2 < controlPoints.size();
    double out = 0.0;
    double in = 0.0;
    if (isInner && left.type == zk_spline::tcb && right.type == zk_spline::tcb) {
        // What tcbSlope works out, with rise and run of this segment taken for both ends.
        const PointInfo& before = *controlPoints[index - 1];
        const PointInfo& after = *controlPoints[index + 2];
        out = slopeOf(2.0 * (getFactorL0(&left) * (left.value - before.value) +
                             getFactorL1(&left) * rise),
                      (left.time - before.time) + run) *
              run;
        in = slopeOf(2.0 * (getFactorR0(&right) * rise +
                            getFactorR1(&right) * (after.value - right.value)),
                     run + (after.time - right.time)) *
             run;
    } else {
        out = outgoingSlope(index, 1.0) * run;
        in = incomingSlope(index + 1, 1.0) * run;
    }
    const double value =
        left.value + u * (out + u * (3.0 * rise - 2.0 * out - in + u * (out + in - 2.0 * rise)));
    return isFinite(value) ? value : valueBeyondRange(index, time);
}

/// The value where the quick way to it has left the range of numbers: worked out at a smaller
/// scale. A slope that is no number there either counts as level, so that finite keys have finite
/// values between them.
[[gnu::noinline, gnu::cold]] double SplineBase::valueBeyondRange(std::size_t index,
                                                                 double time) const
{
    const PointInfo& left = *controlPoints[index];
    const PointInfo& right = *controlPoints[index + 1];
    if (!(time > left.time)) {
        return left.value;
    }
    const double run = right.time - left.time;
    const double u = Ease(left.tcb.easeFrom, right.tcb.easeTo).way((time - left.time) / run);
    if (!isCurvedSegment(index)) {
        return straightBetween(left.value, right.value, u);
    }
    const double out = finiteOrLevel(outgoingSlope(index, smallScale)) * run;
    const double in = finiteOrLevel(incomingSlope(index + 1, smallScale)) * run;
    return curvedBetween(left.value, right.value, out, in, u);
}

const double SplineBase::operator()(const double& time) const
{
    const std::size_t count = controlPoints.size();
    const std::size_t guess = lastSegment.load(std::memory_order_relaxed);
    if (guess + 2 < count) {
        // Whoever walks along the curve asks for the same segment again, or for the next one. Both
        // ends in one question leave a processor one branch that it guesses well.
        const PointInfo* const* const points = controlPoints.data() + guess;
        const int isPastStart = static_cast<int>(time >= points[0]->time);
        const int isPastEnd = static_cast<int>(time >= points[2]->time);
        if (isPastStart > isPastEnd) {
            if (!(time >= points[1]->time)) {
                return valueInSegment(guess, time);
            }
            rememberSegment(guess + 1);
            return valueInSegment(guess + 1, time);
        }
    }
    if (count == 0) {
        return defaultValue;
    }
    if (!(time >= controlPoints.front()->time)) {
        return valueOutside(time, firstType, true);
    }
    if (time > controlPoints.back()->time) {
        return valueOutside(time, lastType, false);
    }
    return valueWithin(time);
}
