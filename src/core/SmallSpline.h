#pragma once

#include "core/SplineBase.h"

/// The two keys of a segment and their neighbours, their values and slopes times a scale: tells the
/// slopes of the segment's ends where those of the spline itself leave the range of numbers.
class SmallSpline
{
public:
    /// `segment` is the index of the segment's first key, which another one follows.
    SmallSpline(const SplineBase& spline, unsigned segment, double scale)
        : left(segment == 0 ? 0 : 1)
    {
        for (unsigned key = segment - left; key < segment + 3 && spline[key]; ++key) {
            auto* const copy = new PointInfo(*spline[key]);
            copy->value *= scale;
            copy->bezier.tangentLeft *= scale;
            copy->bezier.tangentRight *= scale;
            around.addPointPtr(copy);
        }
    }

    /// The slopes (scaled value per second) with which the segment begins and ends; of Bezier and
    /// TCB keys.
    double outgoingSlope() const
    {
        double length = 0.0;
        return around.getTangentRightAtNode(left + 1, length);
    }
    double incomingSlope() const
    {
        double length = 0.0;
        return around.getTangentLeftAtNode(left + 1, length);
    }

private:
    SplineBase around;
    unsigned left; // the index here of the segment's first key
};
