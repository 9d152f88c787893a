#include "core/EvaluationTime.h"
#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

bool isCurved(const PointInfo& key)
{
    return key.type == zk_spline::bezier || key.type == zk_spline::tcb;
}

/// Ease held to 0..1; NaN counts as 0.
double heldEase(const double& ease)
{
    return ease > 0.0 ? std::min(ease, 1.0) : 0.0;
}

/// The parameter of a segment slowed down at its two ends: speed grows evenly over the first `a`
/// of the way, falls evenly over the last `b`, and stays even between.
double eased(const double& u, const double& easeFrom, const double& easeTo)
{
    double a = heldEase(easeFrom);
    double b = heldEase(easeTo);
    const double sum = a + b;
    if (sum == 0.0 || u <= 0.0 || u >= 1.0) {
        return u;
    }
    if (sum > 1.0) {
        a /= sum;
        b /= sum;
    }
    const double speed = 1.0 / (2.0 - a - b);
    if (u < a) {
        return speed / a * u * u;
    }
    if (u < 1.0 - b) {
        return speed * (2.0 * u - a);
    }
    // b is not 0 here: u is below 1.
    return 1.0 - speed / b * (1.0 - u) * (1.0 - u);
}

} // namespace

double SplineBase::operator()(const double& time) const
{
    const std::size_t count = controlPoints.size();
    const std::size_t guess = lastSegment.load(std::memory_order_relaxed);
    if (guess + 2 < count) {
        // Whoever walks along the curve asks for the same segment again, or for the next one.
        const PointInfo* const* const points = controlPoints.data() + guess;
        const double middle = points[1]->time;
        if ((time >= points[0]->time) & (time < middle)) {
            return valueInSegment(guess, time);
        }
        if ((time >= middle) & (time < points[2]->time)) {
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

/// The last key at or before the time, which must not lie before the first key. Without branches
/// that hang on the data: a processor guesses every second one of them wrong.
std::size_t SplineBase::segmentAt(const double& time) const
{
    const PointInfo* const* const points = controlPoints.data();
    const PointInfo* const* base = points;
    std::size_t length = controlPoints.size();
    while (length > 1) {
        const std::size_t half = length / 2;
        base += half & (std::size_t{0} - static_cast<std::size_t>(base[half]->time <= time));
        length -= half;
    }
    return static_cast<std::size_t>(base - points);
}

double SplineBase::valueWithin(const double& time) const
{
    const std::size_t index = segmentAt(time);
    if (index + 1 >= controlPoints.size()) {
        return controlPoints[index]->value;
    }
    rememberSegment(index);
    return valueInSegment(index, time);
}

/// The guess covers a segment and the next one: the last segment is kept as that next one.
void SplineBase::rememberSegment(const std::size_t& index) const
{
    const bool isLast = index + 2 >= controlPoints.size();
    lastSegment.store(isLast && index > 0 ? index - 1 : index, std::memory_order_relaxed);
}

/// Cubic Hermite between two curved keys, else a straight line, or a step.
double SplineBase::valueInSegment(const std::size_t& index, const double& time) const
{
    const PointInfo& left = *controlPoints[index];
    const PointInfo& right = *controlPoints[index + 1];
    const double run = right.time - left.time;
    if (left.type == zk_spline::stepped || !(run > 0.0) ||
        !(run <= std::numeric_limits<double>::max())) {
        return left.value;
    }
    const double u = eased((time - left.time) / run, left.tcb.easeFrom, right.tcb.easeTo);
    const double rise = right.value - left.value;
    if (!isCurved(left) || !isCurved(right)) {
        return left.value + u * rise;
    }
    const double out = outgoingSlope(index) * run;
    const double in = incomingSlope(index + 1) * run;
    return left.value + u * (out + u * (3.0 * rise - 2.0 * out - in + u * (out + in - 2.0 * rise)));
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
    const double value = valueWithin(std::min(first.time + phase, last.time));
    if (!withOffset) {
        return value;
    }
    const double rounds = std::round((distance - phase) / period);
    return value + rounds * (last.value - first.value);
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
    if (!isCurved(left) || !isCurved(*controlPoints[segment + 1])) {
        return chord(segment);
    }
    return before ? outgoingSlope(0) : incomingSlope(count - 1);
}
