#include "curves/ControlSplineNode.h"

#include "core/SplineBase.h"

#include <algorithm>
#include <utility>

ControlSplineNode::ControlSplineNode(SplineCurveGraph* graph, SplineBase* spline)
    : owner(graph)
    , splineHandle(spline)
{}

SplineBase* ControlSplineNode::spline() const
{
    return splineHandle.get();
}

void ControlSplineNode::setSpline(SplineBase* spline)
{
    splineHandle = SplineHandle(spline);
}

void ControlSplineNode::setCurrentPoint(PointInfo* point)
{
    currentPoint = point;
    if (!selectedPoints.contains(point)) {
        selectedPoints.append(point);
    }
}

void ControlSplineNode::selectSinglePoint(PointInfo* point)
{
    currentPoint = point;
    selectedPoints.clear();
    if (point) {
        selectedPoints.append(point);
    }
}

void ControlSplineNode::selectPoints(const QList<PointInfo*>& points)
{
    const QList<PointInfo*> wanted = points; // the argument may be our own list
    clear();
    if (wanted.size() == 1) {
        selectSinglePoint(wanted.first());
    } else if (!wanted.isEmpty()) {
        currentPoint = wanted.first();
        selectedPoints = wanted;
    }
}

void ControlSplineNode::togglePoint(PointInfo* point)
{
    if (!isKey(point)) {
        return;
    }
    if (selectedPoints.size() <= 1 && currentPoint == point) {
        clear();
        return;
    }
    if (!currentPoint || selectedPoints.isEmpty()) {
        selectSinglePoint(point);
        return;
    }
    QList<PointInfo*> points = selectedPoints;
    if (points.removeAll(point) == 0) {
        const auto isLater = [this, point](const PointInfo* other) {
            return isKey(other) && other->time > point->time;
        };
        points.insert(std::find_if(points.cbegin(), points.cend(), isLater), point);
    }
    currentPoint = points.isEmpty() ? nullptr : points.last();
    selectedPoints = points;
}

void ControlSplineNode::clear()
{
    currentPoint = nullptr;
    selectedPoints.clear();
}

void ControlSplineNode::dropDeparted()
{
    QList<PointInfo*> kept;
    for (PointInfo* point : std::as_const(selectedPoints)) {
        if (isKey(point)) {
            kept.append(point);
        }
    }
    if (kept.size() == selectedPoints.size() && isKey(currentPoint) == (currentPoint != nullptr)) {
        return;
    }
    PointInfo* const current = currentPoint;
    selectPoints(kept);
    if (kept.contains(current)) {
        currentPoint = current;
    }
}

bool ControlSplineNode::hasSelection() const
{
    return currentPoint && !selectedPoints.isEmpty() && spline();
}

QList<PointInfo*> ControlSplineNode::commandPoints() const
{
    if (!hasSelection()) {
        return {};
    }
    return selectedPoints.size() == 1 ? QList<PointInfo*>{currentPoint} : selectedPoints;
}

std::vector<const PointInfo*> ControlSplineNode::selectedPointsVector() const
{
    if (!spline()) {
        return {};
    }
    return std::vector<const PointInfo*>(selectedPoints.cbegin(), selectedPoints.cend());
}

void ControlSplineNode::selectedTimeRange(double& first, double& last) const
{
    const QList<PointInfo*> points =
        selectedPoints.isEmpty() ? QList<PointInfo*>{currentPoint} : selectedPoints;
    const auto isOurs = [this](const PointInfo* point) { return isKey(point); };
    const auto front = std::find_if(points.cbegin(), points.cend(), isOurs);
    const auto back = std::find_if(points.crbegin(), points.crend(), isOurs);
    first = front == points.cend() ? 0.0 : (*front)->time;
    last = back == points.crend() ? 0.0 : (*back)->time;
}

void ControlSplineNode::removeSelected()
{
    if (SplineBase* keys = spline()) {
        if (selectedPoints.size() < 2) {
            keys->remove(currentPoint);
        } else {
            for (const PointInfo* point : std::as_const(selectedPoints)) {
                keys->remove(point);
            }
        }
    }
    clear();
}

template <typename IsBetter>
PointInfo* ControlSplineNode::bestPoint(const IsBetter& isBetter) const
{
    if (!hasSelection()) {
        return nullptr;
    }
    PointInfo* best = isKey(currentPoint) ? currentPoint : nullptr;
    for (PointInfo* point : selectedPoints) {
        if (isKey(point) && (!best || isBetter(*point, *best))) {
            best = point;
        }
    }
    return best;
}

PointInfo* ControlSplineNode::earliestPoint() const
{
    return bestPoint([](const PointInfo& a, const PointInfo& b) { return a.time < b.time; });
}

PointInfo* ControlSplineNode::latestPoint() const
{
    return bestPoint([](const PointInfo& a, const PointInfo& b) { return a.time > b.time; });
}

PointInfo* ControlSplineNode::lowestPoint() const
{
    return bestPoint([](const PointInfo& a, const PointInfo& b) { return a.value < b.value; });
}

PointInfo* ControlSplineNode::highestPoint() const
{
    return bestPoint([](const PointInfo& a, const PointInfo& b) { return a.value > b.value; });
}

/// Whether the point may be read: a key that left the spline may be freed.
bool ControlSplineNode::isKey(const PointInfo* point) const
{
    return point && spline() && spline()->findIndex(point) >= 0;
}
