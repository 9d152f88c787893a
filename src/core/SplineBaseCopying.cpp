#include "core/SplineBase.h"
#include "core/TimeOrder.h"

#include <algorithm>
#include <iterator>

void SplineBase::copy(const SplineBase& source)
{
    if (this == &source) {
        return;
    }
    const PointList points = source.duplicates(0.0);
    freePoints();
    takePoints(points);
    takeFields(source);
}

void SplineBase::copyRefs(const SplineBase& source)
{
    *this = source;
    changed = true;
}

void SplineBase::copyDup(const SplineBase& source, const double& offset)
{
    const PointList points = source.duplicates(offset);
    freePoints();
    takePoints(points);
    firstType = source.firstType;
    lastType = source.lastType;
    defaultValue = source.defaultValue;
    changed = true;
}

void SplineBase::copySelected(const SplineBase& source, const std::vector<const PointInfo*>& points)
{
    const std::unordered_set<const PointInfo*> listed(points.begin(), points.end());
    PointList selected;
    for (const PointInfo* point : source.controlPoints) {
        if (listed.count(point) != 0) {
            selected.push_back(new PointInfo(*point));
        }
    }
    freePoints();
    takePoints(selected);
    firstType = source.firstType;
    lastType = source.lastType;
    changed = true;
}

std::vector<const PointInfo*> SplineBase::combine(const SplineBase& source, const double& offset)
{
    PointList added = source.duplicates(offset);
    std::stable_sort(added.begin(), added.end(), TimeOrder());
    if (orderUpset) {
        restoreOrder();
    }
    PointList merged;
    merged.reserve(controlPoints.size() + added.size());
    std::merge(controlPoints.begin(), controlPoints.end(), added.begin(), added.end(),
               std::back_inserter(merged), TimeOrder());
    controlPoints.swap(merged);
    members.insert(added.begin(), added.end());
    changed = true;
    return {added.begin(), added.end()};
}

/// New keys of the caller's, in the order of the list.
SplineBase::PointList SplineBase::duplicates(const double& offset) const
{
    PointList points;
    points.reserve(controlPoints.size());
    for (const PointInfo* point : controlPoints) {
        auto* duplicate = new PointInfo(*point);
        duplicate->time += offset;
        points.push_back(duplicate);
    }
    return points;
}

/// Becomes the owner of these keys; the list must be empty.
void SplineBase::takePoints(const PointList& newPoints)
{
    controlPoints.reserve(newPoints.size());
    members.reserve(newPoints.size());
    for (PointInfo* point : newPoints) {
        insertInOrder(point);
    }
}
