#pragma once

#include "core/PointInfo.h"

#include <cstddef>
#include <vector>

/// What one would write by hand for keys of any kind within their range: no behaviours, no guards
/// against keys of one time and odd numbers. The keys are not owned; at least two.
class HandWrittenSpline
{
public:
    explicit HandWrittenSpline(const std::vector<PointInfo*>& keys);

    double at(double time) const;

    /// The same for times that ascend: begins at the segment of the last call.
    double onwards(double time);

private:
    std::size_t segmentAt(double time) const;
    double within(std::size_t index, double time) const;
    double slopeOut(std::size_t index) const;
    double slopeIn(std::size_t index) const;

    const std::vector<PointInfo*>& points;
    std::size_t hint = 0;
};
