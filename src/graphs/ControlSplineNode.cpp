#include "graphs/ControlSplineNode.h"

#include "core/SplineBase.h"

#include <QHash>

#include <algorithm>

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
    splineHandle = curve_editor::SplineHandle(spline);
}

void ControlSplineNode::setCurrentPoint(PointInfo* point)
{
    note();
    const qsizetype place = selectedPoints.indexOf(point);
    currentPoint = point;
    notedCurrent = present(point);
    if (place < 0) {
        selectedPoints.append(point);
        note();
    } else {
        notedSerials[static_cast<std::size_t>(place)] = notedCurrent.serial;
    }
}

void ControlSplineNode::selectSinglePoint(PointInfo* point)
{
    selectSingleKey(present(point));
}

void ControlSplineNode::selectSingleKey(const KeyRef& key)
{
    clear();
    if (key.key) {
        currentPoint = key.key;
        selectedPoints.append(key.key);
        notedCurrent = key;
        notedPoints = selectedPoints;
        notedSerials = {key.serial};
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
        note();
    }
}

void ControlSplineNode::togglePoint(PointInfo* point)
{
    if (!present(point).serial) {
        return;
    }
    const bool wasSelected = isSelected(point);
    if (wasSelected && selectedPoints.size() <= 1 && currentPoint == point) {
        clear();
        return;
    }
    if (!currentPoint || selectedPoints.isEmpty()) {
        selectSinglePoint(point);
        return;
    }
    QList<PointInfo*> points;
    std::vector<std::uint64_t> serials;
    qsizetype place = -1;
    for (qsizetype i = 0; i < selectedPoints.size(); ++i) {
        if (selectedPoints.at(i) == point) {
            continue; // or what lay there before
        }
        if (place < 0 && isHeld(i) && selectedPoints.at(i)->time > point->time) {
            place = points.size();
        }
        points.append(selectedPoints.at(i));
        serials.push_back(notedSerials[static_cast<std::size_t>(i)]);
    }
    if (!wasSelected) {
        place = place < 0 ? points.size() : place;
        points.insert(place, point);
        serials.insert(serials.begin() + place, present(point).serial);
    }
    selectedPoints = points;
    notedPoints = points;
    notedSerials = serials;
    notedCurrent = points.isEmpty() ? KeyRef() : KeyRef{points.last(), serials.back()};
    currentPoint = notedCurrent.key;
}

void ControlSplineNode::clear()
{
    currentPoint = nullptr;
    selectedPoints.clear();
    note();
}

void ControlSplineNode::dropDeparted()
{
    const QList<PointInfo*> held = heldPoints();
    PointInfo* const current = heldCurrent();
    if (held.size() == selectedPoints.size() && current == currentPoint) {
        return;
    }
    selectPoints(held);
    if (held.contains(current)) {
        setCurrentPoint(current);
    }
}

QList<PointInfo*> ControlSplineNode::heldPoints() const
{
    note();
    QList<PointInfo*> held;
    for (qsizetype i = 0; i < selectedPoints.size(); ++i) {
        if (isHeld(i)) {
            held.append(selectedPoints.at(i));
        }
    }
    return held;
}

PointInfo* ControlSplineNode::heldCurrent() const
{
    note();
    return spline() && spline()->holds(notedCurrent) ? currentPoint : nullptr;
}

bool ControlSplineNode::isSelected(const PointInfo* key) const
{
    note();
    if (!key || !spline()) {
        return false;
    }
    const auto place = std::find(selectedPoints.cbegin(), selectedPoints.cend(), key);
    return (place != selectedPoints.cend() && isHeld(place - selectedPoints.cbegin())) ||
           (notedCurrent.key == key && spline()->holds(notedCurrent));
}

QList<KeyRef> ControlSplineNode::selectedKeys() const
{
    note();
    QList<KeyRef> keys;
    for (qsizetype i = 0; i < selectedPoints.size(); ++i) {
        if (selectedPoints.at(i)) {
            keys.append({selectedPoints.at(i), notedSerials[static_cast<std::size_t>(i)]});
        }
    }
    return keys;
}

bool ControlSplineNode::hasSelection() const
{
    return currentPoint && !selectedPoints.isEmpty() && spline();
}

QList<KeyRef> ControlSplineNode::commandKeys() const
{
    if (!hasSelection()) {
        return {};
    }
    note();
    return selectedPoints.size() == 1 ? QList<KeyRef>{notedCurrent} : selectedKeys();
}

std::vector<const PointInfo*> ControlSplineNode::selectedPointsVector() const
{
    const QList<PointInfo*> held = heldPoints();
    return std::vector<const PointInfo*>(held.cbegin(), held.cend());
}

void ControlSplineNode::selectedTimeRange(double& first, double& last) const
{
    const PointInfo* const current = heldCurrent();
    const QList<PointInfo*> held = heldPoints();
    const PointInfo* front = held.isEmpty() ? nullptr : held.first();
    const PointInfo* back = held.isEmpty() ? nullptr : held.last();
    if (selectedPoints.isEmpty()) {
        front = current;
        back = current;
    }
    first = front ? front->time : 0.0;
    last = back ? back->time : 0.0;
}

void ControlSplineNode::removeSelected()
{
    const QList<PointInfo*> held =
        selectedPoints.size() < 2 ? QList<PointInfo*>{heldCurrent()} : heldPoints();
    for (const PointInfo* point : held) {
        if (point) {
            spline()->remove(point);
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
    PointInfo* best = heldCurrent();
    for (PointInfo* point : heldPoints()) {
        if (!best || isBetter(*point, *best)) {
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

/// The key of our spline that lies there now.
KeyRef ControlSplineNode::present(PointInfo* point) const
{
    return {point, spline() ? spline()->keySerial(point) : 0};
}

/// Brings the notes in step with the fields that anybody may write. What is noted already stays:
/// an address that is still named means the key that was named first.
void ControlSplineNode::note() const
{
    const bool isInStep = notedPoints.size() == selectedPoints.size() &&
                          notedPoints.constData() == selectedPoints.constData();
    if (!isInStep) {
        QHash<PointInfo*, std::uint64_t> former;
        for (qsizetype i = 0; i < notedPoints.size(); ++i) {
            former.insert(notedPoints.at(i), notedSerials[static_cast<std::size_t>(i)]);
        }
        notedSerials.clear();
        for (PointInfo* point : selectedPoints) {
            const auto known = former.constFind(point);
            notedSerials.push_back(known == former.cend() ? present(point).serial : *known);
        }
        notedPoints = selectedPoints; // shared: whoever writes there makes a list of his own
    }
    if (notedCurrent.key != currentPoint) {
        const qsizetype place = selectedPoints.indexOf(currentPoint);
        notedCurrent = place < 0
                           ? present(currentPoint)
                           : KeyRef{currentPoint, notedSerials[static_cast<std::size_t>(place)]};
    }
}

/// Whether the spline holds the selected key. The notes are in step.
bool ControlSplineNode::isHeld(const qsizetype& index) const
{
    return spline() && spline()->holds({selectedPoints.at(index),
                                        notedSerials[static_cast<std::size_t>(index)]});
}
