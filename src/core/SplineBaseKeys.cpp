#include "core/SplineBase.h"
#include "core/TimeOrder.h"

#include <algorithm>

SplineBase::PointList::iterator SplineBase::find(const PointInfo* point)
{
    // Only a member may be read: any other pointer may be a key that is long freed.
    if (members.count(point) == 0) {
        return controlPoints.end();
    }
    if (!orderUpset) {
        auto candidate =
            std::lower_bound(controlPoints.begin(), controlPoints.end(), point->time, TimeOrder());
        while (candidate != controlPoints.end() && !isBefore(point->time, (*candidate)->time)) {
            if (*candidate == point) {
                return candidate;
            }
            ++candidate;
        }
        // A member that is not among the keys of its time: somebody wrote times past setTime.
        orderUpset = true;
    }
    return std::find(controlPoints.begin(), controlPoints.end(), point);
}

int SplineBase::findIndex(const PointInfo* point)
{
    const auto found = find(point);
    return found == controlPoints.end() ? -1 : static_cast<int>(found - controlPoints.begin());
}

const PointInfo* SplineBase::getPrev(const double& time)
{
    const auto place =
        std::lower_bound(controlPoints.begin(), controlPoints.end(), time, TimeOrder());
    const PointInfo* const key = place == controlPoints.begin() ? nullptr : *(place - 1);
    return key != nullptr && key->time < time ? key : nullptr;
}

const PointInfo* SplineBase::getNext(const double& time)
{
    const auto place =
        std::upper_bound(controlPoints.begin(), controlPoints.end(), time, TimeOrder());
    const PointInfo* const key = place == controlPoints.end() ? nullptr : *place;
    return key != nullptr && key->time > time ? key : nullptr;
}

void SplineBase::addPoint(const double& time, const double& value)
{
    auto* point = new PointInfo;
    point->time = time;
    point->value = value;
    addPointPtr(point);
}

PointInfo* SplineBase::addPointPtr(PointInfo* point)
{
    if (point == nullptr) {
        return nullptr;
    }
    const auto found = find(point);
    if (found == controlPoints.end()) {
        insertInOrder(point);
    } else {
        settle(static_cast<std::size_t>(found - controlPoints.begin()));
    }
    changed = true;
    return point;
}

void SplineBase::remove(const PointInfo* point)
{
    const auto found = find(point);
    if (found != controlPoints.end()) {
        controlPoints.erase(found);
        members.erase(point);
        changed = true;
    }
}

void SplineBase::removeAllControlPoints()
{
    freePoints();
    changed = true;
}

void SplineBase::clearCtrlPoints()
{
    dropPoints();
}

void SplineBase::reset()
{
    freePoints();
    firstType = constant;
    lastType = constant;
    changed = true;
}

void SplineBase::setTime(const PointInfo* point, const double& time)
{
    const auto found = find(point);
    if (found != controlPoints.end()) {
        (*found)->time = time;
        settle(static_cast<std::size_t>(found - controlPoints.begin()));
        changed = true;
    }
}

void SplineBase::copyPoint(const PointInfo* target, const PointInfo* source)
{
    const auto found = find(target);
    if (found != controlPoints.end() && source != nullptr) {
        PointInfo* const point = *found;
        controlPoints.erase(found);
        *point = *source;
        insertInOrder(point);
        changed = true;
    }
}

void SplineBase::copyPointNoUpdate(PointInfo* target, const PointInfo* source)
{
    // Asked of the members alone: where the key stands does not matter, and the order may be upset.
    if (members.count(target) != 0 && source != nullptr) {
        orderUpset = orderUpset || target->time != source->time;
        *target = *source;
    }
}

/// Takes the point in behind all keys of its time.
void SplineBase::insertInOrder(PointInfo* point)
{
    members.insert(point);
    if (orderUpset) {
        controlPoints.push_back(point);
        restoreOrder();
    } else if (controlPoints.empty() || !isBefore(point->time, controlPoints.back()->time)) {
        controlPoints.push_back(point);
    } else {
        controlPoints.insert(
            std::upper_bound(controlPoints.begin(), controlPoints.end(), point, TimeOrder()),
            point);
    }
}

/// Moves the key at the index past the neighbours that it is out of order with.
void SplineBase::settle(std::size_t index)
{
    if (orderUpset) {
        restoreOrder();
        return;
    }
    const auto place = controlPoints.begin() + static_cast<std::ptrdiff_t>(index);
    const auto next = place + 1;
    const double time = (*place)->time;
    if (next != controlPoints.end() && isBefore((*next)->time, time)) {
        std::rotate(place, next, std::lower_bound(next, controlPoints.end(), time, TimeOrder()));
    } else if (place != controlPoints.begin() && isBefore(time, (*(place - 1))->time)) {
        std::rotate(std::upper_bound(controlPoints.begin(), place, time, TimeOrder()), place, next);
    }
}

void SplineBase::restoreOrder()
{
    std::stable_sort(controlPoints.begin(), controlPoints.end(), TimeOrder());
    orderUpset = false;
}

/// Lets go of the keys without reading them: shared ones may be freed already.
void SplineBase::dropPoints()
{
    controlPoints.clear();
    members.clear();
    orderUpset = false;
}

void SplineBase::freePoints()
{
    PointList points;
    points.swap(controlPoints);
    dropPoints();
    for (const PointInfo* point : points) {
        delete point;
    }
}
