#include "core/SplineBase.h"
#include "core/DepartedKeys.h"

#include <utility>

SplineBase::SplineBase() = default;

SplineBase::SplineBase(const SplineBase& other)
{
    *this = other;
}

SplineBase& SplineBase::operator=(const SplineBase& other)
{
    if (this != &other) {
        takeFields(other);
        controlPoints = other.controlPoints;
        serials = other.serials;
        orderUpset = other.orderUpset;
    }
    return *this;
}

SplineBase::SplineBase(SplineBase&& other) noexcept
{
    takeAll(other);
}

SplineBase& SplineBase::operator=(SplineBase&& other) noexcept
{
    if (this != &other) {
        freePoints();
        takeAll(other);
        changed = true; // the keys that were here are others now
    }
    return *this;
}

SplineBase::~SplineBase()
{
    freePoints();
}

void SplineBase::takeFields(const SplineBase& other)
{
    firstType = other.firstType;
    lastType = other.lastType;
    defaultValue = other.defaultValue;
    addFunc = other.addFunc;
    changed = other.changed;
}

/// Leaves the other one without keys; there must be none here.
void SplineBase::takeAll(SplineBase& other)
{
    takeFields(other);
    controlPoints.swap(other.controlPoints);
    serials.swap(other.serials);
    departed = std::move(other.departed);
    orderUpset = std::exchange(other.orderUpset, false);
    other.changed = true;
}

unsigned SplineBase::getControlPointsNumber() const
{
    return static_cast<unsigned>(controlPoints.size());
}

const std::vector<PointInfo*>& SplineBase::getControlPoints()
{
    return controlPoints;
}

const PointInfo* SplineBase::operator[](const unsigned& index) const
{
    return at(index);
}

PointInfo* SplineBase::at(const unsigned& index) const
{
    return index < controlPoints.size() ? controlPoints[index] : nullptr;
}

const std::vector<PointInfo*>& SplineBase::keys() const
{
    return controlPoints;
}

const PointInfo* SplineBase::getFirst()
{
    return firstKey();
}

const PointInfo* SplineBase::firstKey() const
{
    return controlPoints.empty() ? nullptr : controlPoints.front();
}

const PointInfo* SplineBase::getLast()
{
    return lastKey();
}

const PointInfo* SplineBase::lastKey() const
{
    return controlPoints.empty() ? nullptr : controlPoints.back();
}

const double SplineBase::getDefaultValue() const
{
    return defaultValue;
}

void SplineBase::setDefaultValue(double value)
{
    defaultValue = value;
}

const bool SplineBase::isAddFunc() const
{
    return addFunc;
}

void SplineBase::setAddFunc(const bool& add)
{
    addFunc = add;
}

const bool SplineBase::hasChanged() const
{
    return changed;
}

void SplineBase::setChanged(const bool& change)
{
    changed = change;
}

SplineBase::nodeType SplineBase::firstNodeType() const
{
    return firstType;
}

SplineBase::nodeType SplineBase::lastNodeType() const
{
    return lastType;
}

void SplineBase::setFirstNodeType(nodeType type)
{
    firstType = type;
    changed = true;
}

void SplineBase::setLastNodeType(nodeType type)
{
    lastType = type;
    changed = true;
}

std::weak_ptr<const void> SplineBase::watchLife() const
{
    return life.watch();
}
