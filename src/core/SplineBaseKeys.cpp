#include "core/DepartedKeys.h"
#include "core/SplineBase.h"
#include "core/TimeOrder.h"

#include <algorithm>
#include <atomic>

namespace {

std::atomic<std::uint64_t> lastSerial{0};

bool wasGiven(std::uint64_t serial)
{
    return serial != 0 && serial <= lastSerial.load(std::memory_order_relaxed);
}

} // namespace

/// The first of as many in a row, greater than any that was given before. Never 0.
std::uint64_t SplineBase::newSerials(std::size_t count)
{
    return lastSerial.fetch_add(count, std::memory_order_relaxed) + 1;
}

/// The order of the list: by time, and at equal times by serial. Both are keys of this spline.
bool SplineBase::comesBefore(const PointInfo* point, const PointInfo* other) const
{
    return isBefore(point->time, other->time) ||
           (!isBefore(other->time, point->time) && serials.of(point) < serials.of(other));
}

std::uint64_t SplineBase::keySerial(const PointInfo* point) const
{
    return serials.of(point);
}

bool SplineBase::holds(const KeyRef& ref) const
{
    return ref.serial != 0 && serials.of(ref.key) == ref.serial;
}

/// The place of a key of this spline by its order, or the end when it is not there.
SplineBase::PointList::const_iterator SplineBase::placeInOrder(const PointInfo* point) const
{
    const auto candidate = std::lower_bound(
        controlPoints.begin(), controlPoints.end(), point,
        [this](const PointInfo* a, const PointInfo* b) { return comesBefore(a, b); });
    const bool isThere = candidate != controlPoints.end() && *candidate == point;
    return isThere ? candidate : controlPoints.end();
}

SplineBase::PointList::iterator SplineBase::find(const PointInfo* point)
{
    // Only a member may be read: any other pointer may be a key that is long freed.
    if (serials.of(point) == 0) {
        return controlPoints.end();
    }
    if (!orderUpset) {
        const auto place = placeInOrder(point);
        if (place != controlPoints.end()) {
            return controlPoints.begin() + (place - controlPoints.begin());
        }
        // A member that is not where it belongs: somebody wrote times past setTime.
        orderUpset = true;
    }
    return std::find(controlPoints.begin(), controlPoints.end(), point);
}

const int SplineBase::findIndex(const PointInfo* point)
{
    return indexOf(point);
}

int SplineBase::indexOf(const PointInfo* point) const
{
    if (serials.of(point) == 0) {
        return -1;
    }
    auto place = orderUpset ? controlPoints.end() : placeInOrder(point);
    if (place == controlPoints.end()) {
        place = std::find(controlPoints.begin(), controlPoints.end(), point);
    }
    return static_cast<int>(place - controlPoints.begin());
}

const PointInfo* SplineBase::getPrev(const double& time)
{
    return keyBefore(time);
}

const PointInfo* SplineBase::keyBefore(const double& time) const
{
    const auto place =
        std::lower_bound(controlPoints.begin(), controlPoints.end(), time, TimeOrder());
    const PointInfo* const key = place == controlPoints.begin() ? nullptr : *(place - 1);
    return key != nullptr && key->time < time ? key : nullptr;
}

const PointInfo* SplineBase::getNext(const double& time)
{
    return keyAfter(time);
}

const PointInfo* SplineBase::keyAfter(const double& time) const
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
    insertNew(point);
    changed = true;
}

PointInfo* SplineBase::addPointPtr(PointInfo* point)
{
    if (point == nullptr) {
        return nullptr;
    }
    return addPointPtr(point, departed != nullptr ? departed->take(point) : 0).key;
}

KeyRef SplineBase::addPointPtr(PointInfo* point, std::uint64_t serial)
{
    if (point == nullptr) {
        return KeyRef();
    }
    const auto found = find(point);
    if (found != controlPoints.end()) {
        settle(static_cast<std::size_t>(found - controlPoints.begin()));
    } else if (!wasGiven(serial)) {
        insertNew(point);
    } else {
        serials.insert(point, serial);
        insertInOrder(point);
    }
    changed = true;
    return {point, serials.of(point)};
}

void SplineBase::remove(const PointInfo* point)
{
    const KeyRef key = take(point);
    if (key.serial == 0) {
        return;
    }
    if (departed == nullptr) {
        departed = std::make_unique<DepartedKeys>();
    }
    departed->note(point, key.serial);
}

KeyRef SplineBase::take(const PointInfo* point)
{
    const auto found = find(point);
    if (found == controlPoints.end()) {
        return KeyRef();
    }
    const KeyRef key{*found, serials.of(point)};
    controlPoints.erase(found);
    serials.erase(point);
    changed = true;
    return key;
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
        **found = *source;
        settle(static_cast<std::size_t>(found - controlPoints.begin()));
        changed = true;
    }
}

void SplineBase::copyPointNoUpdate(PointInfo* target, const PointInfo* source)
{
    // Asked of the serials alone: where the key stands does not matter, and the order may be upset.
    if (serials.of(target) != 0 && source != nullptr) {
        orderUpset = orderUpset || target->time != source->time;
        *target = *source;
    }
}

/// Takes in a key that the spline never held. It goes behind all keys of its time.
void SplineBase::insertNew(PointInfo* point)
{
    serials.insert(point, newSerials(1));
    if (!orderUpset &&
        (controlPoints.empty() || !isBefore(point->time, controlPoints.back()->time))) {
        controlPoints.push_back(point); // no need to compare serials: the last is the greatest
    } else {
        insertInOrder(point);
    }
}

/// Gives its place to a key that has its serial already.
void SplineBase::insertInOrder(PointInfo* point)
{
    controlPoints.push_back(point);
    settle(controlPoints.size() - 1);
}

/// Moves the key at the index past the neighbours that it is out of order with.
void SplineBase::settle(std::size_t index)
{
    if (orderUpset) {
        restoreOrder();
        return;
    }
    const auto order = [this](const PointInfo* a, const PointInfo* b) { return comesBefore(a, b); };
    const auto place = controlPoints.begin() + static_cast<std::ptrdiff_t>(index);
    const auto next = place + 1;
    PointInfo* const point = *place;
    if (next != controlPoints.end() && comesBefore(*next, point)) {
        std::rotate(place, next, std::lower_bound(next, controlPoints.end(), point, order));
    } else if (place != controlPoints.begin() && comesBefore(point, *(place - 1))) {
        std::rotate(std::upper_bound(controlPoints.begin(), place, point, order), place, next);
    }
}

void SplineBase::restoreOrder()
{
    std::sort(controlPoints.begin(), controlPoints.end(),
              [this](const PointInfo* a, const PointInfo* b) { return comesBefore(a, b); });
    orderUpset = false;
}

/// Lets go of the keys without reading them: shared ones may be freed already.
void SplineBase::dropPoints()
{
    controlPoints.clear();
    serials.clear();
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
