// Many keys at once.

#include "core/RoundingNoise.h"
#include "core/SplineBase.h"
#include "core/SplineReduction.h"
#include "core/TimeOrder.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr double mostBakedKeys = 1e8;

/// Where a record stands in the order of times. Sorting these moves no records.
struct TimedIndex
{
    double time;
    std::size_t index;
};

std::vector<TimedIndex> inTimeOrder(const PointInfo* points, std::size_t count)
{
    std::vector<TimedIndex> order(count);
    for (std::size_t i = 0; i < count; ++i) {
        order[i] = {points[i].time, i};
    }
    const auto isEarlier = [](const TimedIndex& a, const TimedIndex& b) {
        return isBefore(a.time, b.time);
    };
    if (!std::is_sorted(order.begin(), order.end(), isEarlier)) {
        std::stable_sort(order.begin(), order.end(), isEarlier);
    }
    return order;
}

} // namespace

void SplineBase::addPoints(const std::vector<PointInfo>& points)
{
    addPoints(points.data(), points.size());
}

void SplineBase::addPoints(const PointInfo* points, std::size_t count)
{
    if (count == 0) {
        return;
    }
    // Made in the order of time: neighbours in time become neighbours in memory.
    PointList added;
    added.reserve(count);
    for (const TimedIndex& place : inTimeOrder(points, count)) {
        added.push_back(new PointInfo(points[place.index]));
    }
    mergeNew(added);
}

/// Takes in new keys, which stand in the order of time. At equal times those that are here already
/// come first.
void SplineBase::mergeNew(const PointList& added)
{
    if (orderUpset) {
        restoreOrder();
    }
    const std::size_t former = controlPoints.size();
    serials.reserve(former + added.size());
    std::uint64_t serial = newSerials(added.size());
    for (const PointInfo* point : added) {
        serials.insert(point, serial++);
    }
    changed = true;
    if (former == 0 || added.empty() ||
        !isBefore(added.front()->time, controlPoints.back()->time)) {
        controlPoints.insert(controlPoints.end(), added.begin(), added.end());
        return;
    }
    PointList merged;
    merged.reserve(former + added.size());
    std::merge(controlPoints.begin(), controlPoints.end(), added.begin(), added.end(),
               std::back_inserter(merged), TimeOrder());
    controlPoints.swap(merged);
}

SplineBase SplineBase::bake(const double& first, const double& last, const double& rate) const
{
    SplineBase baked;
    baked.takeFields(*this);
    const double frames = (last - first) * rate;
    if (!std::isfinite(first) || !(last >= first) || !(rate > 0.0) || !(frames < mostBakedKeys)) {
        return baked;
    }
    std::vector<PointInfo> points;
    const auto add = [&](double time) {
        PointInfo key;
        key.time = time;
        key.value = (*this)(time);
        key.type = zk_spline::linear;
        points.push_back(key);
    };
    // Frames are divided by the rate one by one, so that roundings do not add up. One that falls on
    // the end but for roundings is the end.
    const double noise = frames == 0.0 ? 0.0 : roundingNoise(std::abs(first * rate) + frames);
    for (double frame = 0.0; frame + noise < frames; frame += 1.0) {
        add(first + frame / rate);
    }
    add(last);
    baked.addPoints(points);
    return baked;
}

SplineBase SplineBase::reduce(const double& tolerance) const
{
    if (!SplineReduction::isPossible(*this)) {
        return clone();
    }
    SplineBase reduced;
    reduced.takeFields(*this);
    reduced.addPoints(SplineReduction(*this, tolerance).keys());
    return reduced;
}
