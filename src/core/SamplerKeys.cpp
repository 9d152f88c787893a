#include "core/SamplerKeys.h"

#include "core/SmallSpline.h"
#include "core/SplineBase.h"
#include "core/SplineFormulas.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

// What adds up to no more than this stays within the range of numbers.
constexpr double safelyFinite = 1e300;

std::vector<double> timesOf(const SplineBase& spline)
{
    std::vector<double> times(spline.getControlPointsNumber());
    for (unsigned key = 0; key < times.size(); ++key) {
        times[key] = spline[key]->time;
    }
    return times;
}

} // namespace

SamplerKeys::SamplerKeys(const SplineBase& spline)
    : index(timesOf(spline))
    , before(spline, true)
    , after(spline, false)
{
    const std::vector<double>& times = keyTimes();
    firstTime = times.empty() ? notANumber : times.front();
    lastTime = times.empty() ? notANumber : times.back();
    // An end that is no number bounds nothing.
    lastTime = !times.empty() && std::isnan(lastTime) ? infinity : lastTime;
    segments.reserve(times.size());
    for (unsigned key = 0; key < times.size(); ++key) {
        segments.push_back(makeSegment(spline, key, shapes));
    }
}

SamplerKeys::Segment SamplerKeys::makeSegment(const SplineBase& spline, unsigned key,
                                              std::vector<Shape>& shapes)
{
    using namespace spline_formulas;
    const PointInfo& left = *spline[key];
    Segment segment;
    segment.start = left.time;
    segment.end = infinity;
    segment.value = left.value;
    if (key + 1 == spline.getControlPointsNumber()) {
        return segment;
    }
    const PointInfo& right = *spline[key + 1];
    segment.end = std::isnan(right.time) ? infinity : right.time;
    const double run = right.time - left.time;
    if (left.type == zk_spline::stepped || !(run > 0.0) || !isFinite(run)) {
        return segment;
    }
    segment.run = run;
    segment.kind = cubic;
    segment.rise1 = right.value - left.value;
    const bool isCurvedSegment = isCurved(left) && isCurved(right);
    if (isCurvedSegment) {
        double length = 0.0;
        const double rise = segment.rise1;
        const double out = spline.getTangentRightAtNode(key + 1, length) * run;
        const double in = spline.getTangentLeftAtNode(key + 1, length) * run;
        segment.rise1 = out;
        segment.rise2 = 3.0 * rise - 2.0 * out - in;
        segment.rise3 = out + in - 2.0 * rise;
    }
    const Ease ease(left.tcb.easeFrom, right.tcb.easeTo);
    const double size = std::abs(segment.value) + std::abs(segment.rise1) +
                        std::abs(segment.rise2) + std::abs(segment.rise3);
    const bool isBeyondRange = !(size <= safelyFinite);
    if (!ease.isNone() || isBeyondRange) {
        segment.kind = shaped;
        segment.shape = static_cast<std::uint32_t>(shapes.size());
        Shape shape = {ease, isCurvedSegment, isBeyondRange, right.value, 0.0, 0.0};
        if (isCurvedSegment && isBeyondRange) {
            const SmallSpline around(spline, key, smallScale);
            shape.out = finiteOrLevel(around.outgoingSlope()) * run;
            shape.in = finiteOrLevel(around.incomingSlope()) * run;
        }
        shapes.push_back(shape);
    }
    return segment;
}

double SamplerKeys::valueShaped(const Segment& segment, double time) const
{
    return time > segment.start
               ? valueOnWay(segment, shapes[segment.shape].ease.way(shareOf(segment, time)))
               : segment.value;
}

/// `way` is the share of the way that ease makes of a share of the time.
double SamplerKeys::valueOnWay(const Segment& segment, double way) const
{
    const Shape& shape = shapes[segment.shape];
    if (!shape.isBeyondRange) {
        return valueAt(segment, way);
    }
    const double quick =
        shape.isCurved ? valueAt(segment, way) : segment.value + way * segment.rise1;
    if (spline_formulas::isFinite(quick)) {
        return quick;
    }
    return shape.isCurved ? spline_formulas::curvedBetween(segment.value, shape.nextValue,
                                                           shape.out, shape.in, way)
                          : spline_formulas::straightBetween(segment.value, shape.nextValue, way);
}

double SamplerKeys::valueOutside(double time) const
{
    if (segments.empty()) {
        return before.endValue;
    }
    if (std::isnan(time)) {
        return time;
    }
    const SamplerTail& tail = time > lastTime ? after : before;
    return tail.isLoop() ? valueLooped(tail, time) : tail.value(time);
}

double SamplerKeys::valueLooped(const SamplerTail& tail, double time) const
{
    const spline_formulas::CyclePlace place(time, firstTime, lastTime);
    if (!place.isKnown) {
        return tail.endValue;
    }
    const double value = valueNear(place.time, place.noise);
    return tail.isRaised() ? spline_formulas::raised(value, place.rounds, tail.rise) : value;
}

/// The value at a time within the keys, or at the key that lies within `noise` of it.
double SamplerKeys::valueNear(double time, double noise) const
{
    const std::size_t key = index.at(time);
    const Segment& segment = segments[key];
    if (key + 1 == segments.size()) {
        return segment.value;
    }
    const double sinceStart = time - segment.start;
    const double untilEnd = segments[key + 1].start - time;
    if (std::min(sinceStart, untilEnd) > noise) {
        return valueWithin(segment, time);
    }
    return value(sinceStart <= untilEnd ? segment.start : segments[key + 1].start);
}

void SamplerKeys::values(const double* times, double* out, std::size_t count) const
{
    bool ascends = true;
    for (std::size_t i = 1; i < count; ++i) {
        ascends &= times[i - 1] <= times[i];
    }
    if (ascends && count > 1) {
        walk(times, out, count);
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        out[i] = value(times[i]);
    }
}

/// Along ascending times, segment by segment.
void SamplerKeys::walk(const double* times, double* out, std::size_t count) const
{
    std::size_t i = 0;
    for (; i < count && !(times[i] >= firstTime && times[i] <= lastTime); ++i) {
        out[i] = valueOutside(times[i]);
    }
    std::size_t stop = count;
    for (; stop > i && !(times[stop - 1] <= lastTime); --stop) {
        out[stop - 1] = valueOutside(times[stop - 1]);
    }
    std::size_t key = 0;
    while (i < stop) {
        key = std::min(key + 1, segments.size() - 1);
        if (!(segments[key].start <= times[i] && times[i] < segments[key].end)) {
            key = index.at(times[i]);
        }
        i += fill(segments[key], times + i, out + i, stop - i);
    }
}

/// The first time and those after it that lie in the segment; tells how many there are.
std::size_t SamplerKeys::fill(const Segment& segment, const double* __restrict times,
                              double* __restrict out, std::size_t count) const
{
    std::size_t i = 0;
    if (segment.kind == cubic) {
        const Segment kept = segment;
        do {
            out[i] = valueAt(kept, shareOf(kept, times[i]));
            ++i;
        } while (i < count && times[i] < kept.end);
        return i;
    }
    do {
        out[i] = valueWithin(segment, times[i]);
        ++i;
    } while (i < count && times[i] < segment.end);
    return i;
}
