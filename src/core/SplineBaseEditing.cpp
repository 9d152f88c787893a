// Writing the fields of a key.

#include "core/SplineBase.h"

namespace {

/// A unified key has continuity 0 and one slope on both sides, whichever kind it is of.
void writeTcb(PointInfo& point, const PointInfo::TcbData& data)
{
    point.tcb = data;
    if (point.unifiedTangents) {
        point.tcb.continuity = 0.0;
    }
}

void writeBezier(PointInfo& point, const PointInfo::BezierData& data)
{
    point.bezier = data;
    if (point.unifiedTangents) {
        point.bezier.tangentRight = point.bezier.tangentLeft;
    }
}

} // namespace

void SplineBase::setPos(const PointInfo* point, const double& value)
{
    const auto found = find(point);
    if (found != controlPoints.end()) {
        (*found)->value = value;
        changed = true;
    }
}

void SplineBase::setType(const PointInfo* point, const zk_spline::interpolationType& type)
{
    setInterpolationType(point, type);
}

void SplineBase::setInterpolationType(const PointInfo* point, zk_spline::interpolationType type)
{
    const auto found = find(point);
    if (found != controlPoints.end()) {
        (*found)->type = type;
        changed = true;
    }
}

void SplineBase::setInterpolationType(unsigned index, zk_spline::interpolationType type)
{
    if (index < controlPoints.size()) {
        controlPoints[index]->type = type;
        changed = true;
    }
}

void SplineBase::breakTangent(const PointInfo* point)
{
    const auto found = find(point);
    if (found != controlPoints.end()) {
        (*found)->unifiedTangents = false;
        changed = true;
    }
}

void SplineBase::unifyTangent(const PointInfo* point)
{
    const auto found = find(point);
    if (found == controlPoints.end()) {
        return;
    }
    PointInfo& key = **found;
    key.unifiedTangents = true;
    key.tcb.continuity = 0.0;
    if (found == controlPoints.begin()) {
        key.bezier.tangentLeft = key.bezier.tangentRight;
    } else {
        key.bezier.tangentRight = key.bezier.tangentLeft;
    }
    changed = true;
}

void SplineBase::setTanLeft(const PointInfo* point, const double& slope)
{
    const auto found = find(point);
    if (found == controlPoints.end()) {
        return;
    }
    PointInfo& key = **found;
    key.bezier.tangentLeft = slope;
    if (key.unifiedTangents) {
        key.bezier.tangentRight = key.bezier.tangentLeft;
    }
    changed = true;
}

void SplineBase::setTanRight(const PointInfo* point, const double& slope)
{
    const auto found = find(point);
    if (found == controlPoints.end()) {
        return;
    }
    PointInfo& key = **found;
    key.bezier.tangentRight = slope;
    if (key.unifiedTangents) {
        key.bezier.tangentLeft = key.bezier.tangentRight;
    }
    changed = true;
}

void SplineBase::setTcb(const PointInfo* point, const PointInfo::TcbData& data)
{
    const auto found = find(point);
    if (found != controlPoints.end()) {
        writeTcb(**found, data);
        changed = true;
    }
}

void SplineBase::setTcb(unsigned index, const PointInfo::TcbData& data)
{
    if (index < controlPoints.size()) {
        writeTcb(*controlPoints[index], data);
        changed = true;
    }
}

void SplineBase::setBezier(const PointInfo* point, const PointInfo::BezierData& data)
{
    const auto found = find(point);
    if (found != controlPoints.end()) {
        writeBezier(**found, data);
        changed = true;
    }
}

void SplineBase::setBezier(unsigned index, const PointInfo::BezierData& data)
{
    if (index < controlPoints.size()) {
        writeBezier(*controlPoints[index], data);
        changed = true;
    }
}
