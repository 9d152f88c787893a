#include "HandWrittenSpline.h"

#include <algorithm>

namespace {

double eased(double u, double a, double b)
{
    const double sum = a + b;
    if (sum == 0.0) {
        return u;
    }
    if (sum > 1.0) {
        a /= sum;
        b /= sum;
    }
    const double k = 1.0 / (2.0 - a - b);
    if (u < a) {
        return k / a * u * u;
    }
    return u < 1.0 - b ? k * (2.0 * u - a) : 1.0 - k / b * (1.0 - u) * (1.0 - u);
}

} // namespace

HandWrittenSpline::HandWrittenSpline(const std::vector<PointInfo*>& keys)
    : points(keys)
{}

// Branch-free: the choice becomes a conditional move.
std::size_t HandWrittenSpline::segmentAt(double time) const
{
    PointInfo* const* base = points.data();
    std::size_t length = points.size() - 1;
    while (length > 1) {
        const std::size_t half = length / 2;
        base = base[half]->time <= time ? base + half : base;
        length -= half;
    }
    return static_cast<std::size_t>(base - points.data());
}

double HandWrittenSpline::within(std::size_t index, double time) const
{
    const PointInfo& left = *points[index];
    const PointInfo& right = *points[index + 1];
    if (left.type == zk_spline::stepped) {
        return left.value;
    }
    const double run = right.time - left.time;
    const double rise = right.value - left.value;
    const double u = eased((time - left.time) / run, left.tcb.easeFrom, right.tcb.easeTo);
    if (left.type == zk_spline::linear || right.type == zk_spline::linear ||
        right.type == zk_spline::stepped) {
        return left.value + u * rise;
    }
    const double m0 = slopeOut(index) * run;
    const double m1 = slopeIn(index + 1) * run;
    return left.value + u * (m0 + u * (3.0 * rise - 2.0 * m0 - m1 + u * (m0 + m1 - 2.0 * rise)));
}

// The weights as Kochanek and Bartels publish them, over the mean of the two gaps.
double HandWrittenSpline::slopeOut(std::size_t index) const
{
    const PointInfo& key = *points[index];
    if (key.type == zk_spline::bezier) {
        return key.bezier.tangentRight;
    }
    const PointInfo::TcbData& tcb = key.tcb;
    const PointInfo& after = *points[index + 1];
    const PointInfo& before = index > 0 ? *points[index - 1] : after;
    const double weight0 = (1.0 - tcb.tension) * (1.0 + tcb.continuity) * (1.0 + tcb.bias);
    const double weight1 = (1.0 - tcb.tension) * (1.0 - tcb.continuity) * (1.0 - tcb.bias);
    const double run1 = after.time - key.time;
    const double rise1 = after.value - key.value;
    const double run0 = index > 0 ? key.time - before.time : run1;
    const double rise0 = index > 0 ? key.value - before.value : rise1;
    return (weight0 * rise0 + weight1 * rise1) / (run0 + run1);
}

double HandWrittenSpline::slopeIn(std::size_t index) const
{
    const PointInfo& key = *points[index];
    if (key.type == zk_spline::bezier) {
        return key.bezier.tangentLeft;
    }
    const PointInfo::TcbData& tcb = key.tcb;
    const bool isLast = index + 1 == points.size();
    const PointInfo& before = *points[index - 1];
    const PointInfo& after = isLast ? before : *points[index + 1];
    const double weight0 = (1.0 - tcb.tension) * (1.0 - tcb.continuity) * (1.0 + tcb.bias);
    const double weight1 = (1.0 - tcb.tension) * (1.0 + tcb.continuity) * (1.0 - tcb.bias);
    const double run0 = key.time - before.time;
    const double rise0 = key.value - before.value;
    const double run1 = isLast ? run0 : after.time - key.time;
    const double rise1 = isLast ? rise0 : after.value - key.value;
    return (weight0 * rise0 + weight1 * rise1) / (run0 + run1);
}

double HandWrittenSpline::at(double time) const
{
    return within(segmentAt(time), time);
}

double HandWrittenSpline::onwards(double time)
{
    if (time < points[hint]->time) {
        hint = segmentAt(time);
    }
    while (hint + 2 < points.size() && points[hint + 1]->time <= time) {
        ++hint;
    }
    return within(hint, time);
}
