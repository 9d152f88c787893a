#pragma once

#include "core/Ease.h"
#include "core/KeyIndex.h"
#include "core/SamplerTail.h"
#include "core/ValueBounds.h"

#include <cstddef>
#include <cstdint>
#include <vector>

class SplineBase;

/// The keys of a spline as they were at one moment, laid out for evaluation alone: a record of
/// coefficients for each segment, side by side. It never changes, so any number of threads read it.
class SamplerKeys
{
public:
    explicit SamplerKeys(const SplineBase& spline);

    /// As SplineBase works it out, bit for bit but for the signs of zeros.
    double value(double time) const
    {
        if (time >= firstTime && time <= lastTime) {
            const std::size_t key = index.at(time);
            return valueWithin(segments[key], time);
        }
        return valueOutside(time);
    }

    /// The values at `count` times in any order. The two arrays do not overlap.
    void values(const double* times, double* out, std::size_t count) const;

    /// The slope (value per second) at a time; at a key that of the segment which follows.
    double derivative(double time) const;

    /// The lowest and the highest value from one time to a later one, both included. A value that
    /// the curve only comes up to, at the foot or the head of a jump, counts.
    ValueBounds bounds(double from, double to) const;

    const std::vector<double>& keyTimes() const { return index.keyTimes(); }

private:
    enum segmentKind : std::uint32_t
    {
        held,   ///< the value of its key
        cubic,  ///< also straight lines
        shaped, ///< with ease, or with numbers that may leave the range of a double
    };

    /// From a key to the next, which does not belong to it. The value at the share u of its time
    /// is value + u * (rise1 + u * (rise2 + u * rise3)). The last key has a segment, too.
    struct alignas(64) Segment
    {
        double start = 0.0;
        double end = 0.0; // infinite where none follows
        double run = 1.0;
        double value = 0.0;
        double rise1 = 0.0;
        double rise2 = 0.0;
        double rise3 = 0.0;
        segmentKind kind = held;
        std::uint32_t shape = 0; // of a shaped one: its place among the shapes
    };

    struct Shape
    {
        Ease ease;
        bool isCurved;
        bool isBeyondRange; // what the coefficients give may be no number
        double nextValue;
        double out; // the rises at the slopes of the ends, times the small scale
        double in;
    };

    static Segment makeSegment(const SplineBase& spline, unsigned key, std::vector<Shape>& shapes);

    double valueOutside(double time) const;
    double valueLooped(const SamplerTail& tail, double time) const;
    double valueNear(double time, double noise) const;
    double valueWithin(const Segment& segment, double time) const
    {
        if (segment.kind == held) {
            return segment.value;
        }
        return segment.kind == cubic ? valueAt(segment, shareOf(segment, time))
                                     : valueShaped(segment, time);
    }
    static double shareOf(const Segment& segment, double time)
    {
        return (time - segment.start) / segment.run;
    }
    static double valueAt(const Segment& segment, double share)
    {
        return segment.value +
               share * (segment.rise1 + share * (segment.rise2 + share * segment.rise3));
    }
    double valueShaped(const Segment& segment, double time) const;
    double valueOnWay(const Segment& segment, double way) const;

    void walk(const double* times, double* out, std::size_t count) const;
    std::size_t fill(const Segment& segment, const double* times, double* out,
                     std::size_t count) const;

    double slopeWithin(double time) const;
    ValueBounds boundsWithin(double from, double to, bool isRepeated) const;
    ValueBounds boundsOfSegment(const Segment& segment, double from, double to) const;
    ValueBounds boundsOfTail(const SamplerTail& tail, double from, double to) const;
    ValueBounds boundsOfLoop(const SamplerTail& tail, double from, double to) const;

    KeyIndex index;
    std::vector<Segment> segments;
    std::vector<Shape> shapes;
    SamplerTail before;
    SamplerTail after;
    double firstTime; // NaN without keys
    double lastTime;
};
