// What a spline is before its first key and after its last.

#include "core/Ease.h"
#include "core/EvaluationTime.h"
#include "core/FunctionFloatBase.h"
#include "core/RoundingNoise.h"
#include "core/SplineBase.h"

#include <algorithm>
#include <cmath>

namespace {

/// The share of a cycle that counts as noise at most.
constexpr double greatestNoise = 1e-4;

} // namespace

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
    const double period = last.time - first.time;
    const double distance = time - first.time;
    if (!(period > 0.0) || !std::isfinite(period) || !std::isfinite(distance)) {
        return end.value;
    }
    double phase = std::fmod(distance, period);
    if (phase < 0.0) {
        phase += period;
    }
    const double noise = noiseInCycle(time, distance / period);
    if (phase <= noise || period - phase <= noise) {
        phase = 0.0;
    }
    const double value = valueNear(std::min(first.time + phase, last.time), noise);
    if (!withOffset) {
        return value;
    }
    // Endless rounds of no rise are no rise, and so are no rounds of an endless one.
    const double rounds = std::round((distance - phase) / period);
    const double rise = last.value - first.value;
    return rise == 0.0 || rounds == 0.0 ? value : value + rounds * rise;
}

/// How far roundings may have moved a time within its cycle: those of the time itself, and once
/// for each round those of the two keys that make the period. They never swallow the cycle.
double SplineBase::noiseInCycle(const double& time, const double& rounds) const
{
    const double first = controlPoints.front()->time;
    const double last = controlPoints.back()->time;
    const double farthestKey = std::max(std::abs(first), std::abs(last));
    const double ofTime = roundingNoise(std::max(std::abs(time), farthestKey));
    const double ofPeriod = std::abs(rounds) * (roundingNoise(farthestKey) / 4.0);
    return std::min(ofTime + ofPeriod, (last - first) * greatestNoise);
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
    const double distance = time - end.time;
    const double slope = endSlope(before, 1.0);
    if (slope == 0.0) {
        return end.value; // no slope times an endless time is still no rise
    }
    if (std::isfinite(slope)) {
        return end.value + slope * distance;
    }
    const double small = endSlope(before, smallScale);
    return std::isfinite(small) ? (smallScale * end.value + small * distance) / smallScale
                                : end.value;
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
