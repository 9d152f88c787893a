#include "core/SplineBase.h"
#include "core/DepartedKeys.h"

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

const PointInfo* SplineBase::getFirst()
{
    return controlPoints.empty() ? nullptr : controlPoints.front();
}

const PointInfo* SplineBase::getLast()
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
