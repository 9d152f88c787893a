#include "core/SplineBase.h"
#include "core/TimeOrder.h"

#include <algorithm>
#include <functional>

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

SplineBase SplineBase::clone() const
{
    SplineBase twin;
    twin.copy(*this);
    return twin;
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
    std::vector<const PointInfo*> listed = points;
    std::sort(listed.begin(), listed.end(), std::less<>());
    PointList selected;
    for (const PointInfo* point : source.controlPoints) {
        if (std::binary_search(listed.begin(), listed.end(), point, std::less<>())) {
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
    mergeNew(added);
    return {added.begin(), added.end()};
}

/// New keys of the caller's, in the order of the list.
SplineBase::PointList SplineBase::duplicates(const double& offset) const
{
    PointList points;
    points.reserve(controlPoints.size());
    for (const PointInfo* point : controlPoints) {
        auto* duplicate = new PointInfo(*point);
        if (offset != 0.0) { // -0.0 stays what it is
            duplicate->time += offset;
        }
        points.push_back(duplicate);
    }
    return points;
}

/// Becomes the owner of these new keys; the list must be empty.
void SplineBase::takePoints(const PointList& newPoints)
{
    controlPoints.reserve(newPoints.size());
    serials.reserve(newPoints.size());
    for (PointInfo* point : newPoints) {
        insertNew(point);
    }
}
