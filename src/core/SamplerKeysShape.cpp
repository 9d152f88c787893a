#include "core/LevelShares.h"
#include "core/SamplerKeys.h"
#include "core/SplineFormulas.h"

#include <algorithm>
#include <cmath>

// Slopes and bounds.

double SamplerKeys::derivative(double time) const
{
    if (std::isnan(time)) {
        return time;
    }
    if (segments.empty()) {
        return 0.0;
    }
    if (time >= firstTime && time < lastTime) {
        return slopeWithin(time);
    }
    const SamplerTail& tail = time >= lastTime ? after : before;
    if (!tail.isLoop()) {
        return tail.slope();
    }
    const spline_formulas::CyclePlace place(time, firstTime, lastTime);
    return place.isKnown ? slopeWithin(place.time) : 0.0;
}

double SamplerKeys::slopeWithin(double time) const
{
    const Segment& segment = segments[index.at(time)];
    if (segment.kind == held) {
        return 0.0;
    }
    const double share = shareOf(segment, time);
    double way = share;
    double speed = 1.0;
    double rise1 = segment.rise1;
    double rise2 = segment.rise2;
    double rise3 = segment.rise3;
    double scale = 1.0;
    if (segment.kind == shaped) {
        const Shape& shape = shapes[segment.shape];
        way = shape.ease.way(share);
        speed = shape.ease.speed(share);
        if (shape.isBeyondRange) {
            scale = spline_formulas::smallScale;
            const double rise = scale * shape.nextValue - scale * segment.value;
            rise1 = shape.isCurved ? shape.out : rise;
            rise2 = shape.isCurved ? 3.0 * rise - 2.0 * shape.out - shape.in : 0.0;
            rise3 = shape.isCurved ? shape.out + shape.in - 2.0 * rise : 0.0;
        }
    }
    return speed * (rise1 + way * (2.0 * rise2 + way * 3.0 * rise3)) / segment.run / scale;
}

ValueBounds SamplerKeys::bounds(double from, double to) const
{
    ValueBounds all;
    if (segments.empty()) {
        all.take(before.endValue);
        return all;
    }
    if (from < firstTime) {
        all.take(boundsOfTail(before, from, std::min(to, firstTime)));
    }
    if (to >= firstTime && from <= lastTime) {
        all.take(boundsWithin(std::max(from, firstTime), std::min(to, lastTime), false));
    }
    if (to > lastTime) {
        all.take(boundsOfTail(after, std::max(from, lastTime), to));
    }
    if (std::isnan(firstTime)) {
        all.take(boundsOfTail(before, from, to));
    }
    return all;
}

/// Both times lie within the keys. Where the keys repeat, the last of them gives way to the first.
ValueBounds SamplerKeys::boundsWithin(double from, double to, bool isRepeated) const
{
    ValueBounds all;
    const std::size_t end =
        std::min(index.at(to) + 1, isRepeated ? segments.size() - 1 : segments.size());
    for (std::size_t key = index.at(from); key < end; ++key) {
        const Segment& segment = segments[key];
        if (segment.end > segment.start) {
            all.take(
                boundsOfSegment(segment, std::max(from, segment.start), std::min(to, segment.end)));
        }
    }
    return all;
}

ValueBounds SamplerKeys::boundsOfSegment(const Segment& segment, double from, double to) const
{
    ValueBounds all;
    if (segment.kind == held) {
        all.take(segment.value);
        return all;
    }
    double lowest = shareOf(segment, from);
    double highest = shareOf(segment, to);
    double rise1 = segment.rise1;
    double rise2 = segment.rise2;
    double rise3 = segment.rise3;
    const auto takeWay = [&](double way) {
        all.take(segment.kind == shaped ? (way > 0.0 ? valueOnWay(segment, way) : segment.value)
                                        : valueAt(segment, way));
    };
    if (segment.kind == shaped) {
        const Shape& shape = shapes[segment.shape];
        lowest = shape.ease.way(lowest);
        highest = shape.ease.way(highest);
        if (shape.isBeyondRange && shape.isCurved) {
            const double rise = spline_formulas::smallScale * shape.nextValue -
                                spline_formulas::smallScale * segment.value;
            rise1 = shape.out;
            rise2 = 3.0 * rise - 2.0 * shape.out - shape.in;
            rise3 = shape.out + shape.in - 2.0 * rise;
        }
    }
    takeWay(lowest);
    takeWay(highest);
    const LevelShares level(rise1, rise2, rise3);
    for (int i = 0; i < level.count; ++i) {
        if (level.share[i] > lowest && level.share[i] < highest) {
            takeWay(level.share[i]);
        }
    }
    return all;
}

/// Outside of the keys, on one side.
ValueBounds SamplerKeys::boundsOfTail(const SamplerTail& tail, double from, double to) const
{
    if (tail.isLoop() && std::isfinite(lastTime - firstTime) && lastTime > firstTime) {
        return boundsOfLoop(tail, from, to);
    }
    ValueBounds all;
    all.take(tail.value(from));
    all.take(tail.value(to));
    return all;
}

/// What is left of the round it begins in, the whole rounds between, of which the first and the
/// last reach farthest, and the beginning of the round it ends in.
ValueBounds SamplerKeys::boundsOfLoop(const SamplerTail& tail, double from, double to) const
{
    ValueBounds all;
    const auto takeRound = [&](double first, double last, double rounds) {
        const ValueBounds keys = boundsWithin(first, last, true);
        all.take(tail.isRaised() ? spline_formulas::raised(keys.lowest, rounds, tail.rise)
                                 : keys.lowest);
        all.take(tail.isRaised() ? spline_formulas::raised(keys.highest, rounds, tail.rise)
                                 : keys.highest);
    };
    const double period = lastTime - firstTime;
    const spline_formulas::CyclePlace begin(from, firstTime, lastTime);
    const spline_formulas::CyclePlace end(to, firstTime, lastTime);
    const double firstRound =
        begin.isKnown ? begin.rounds : std::floor((from - firstTime) / period);
    const double lastRound = end.isKnown ? end.rounds : std::floor((to - firstTime) / period);
    if (!begin.isKnown || !end.isKnown) {
        all.take(tail.endValue); // where no place within the keys can be told
    }
    const double beginTime = begin.isKnown ? begin.time : firstTime;
    // A key just behind the end may be meant by it.
    const double endTime = end.isKnown ? std::min(end.time + end.noise, lastTime) : lastTime;
    if (firstRound >= lastRound) {
        takeRound(beginTime, std::max(beginTime, endTime), firstRound);
        return all;
    }
    takeRound(beginTime, lastTime, firstRound);
    takeRound(firstTime, endTime, lastRound);
    if (lastRound - firstRound >= 2.0) {
        takeRound(firstTime, lastTime, firstRound + 1.0);
        takeRound(firstTime, lastTime, lastRound - 1.0);
    }
    return all;
}
