// What moves the current key and its handles.

#include "graphs/ControlSplineNode.h"

#include "core/SplineBase.h"

#include <cmath>

void ControlSplineNode::movePoint(const double& x, const double& y)
{
    if (!canEditCurrentPoint()) {
        return;
    }
    if (keyPart == keyItself) {
        placeCurrentPoint(x, y);
    } else {
        moveHandle(x, y);
    }
    selectSinglePoint(currentPoint);
}

void ControlSplineNode::scalePoint(const double& sx, const double& sy)
{
    if (canEditCurrentPoint()) {
        placeCurrentPoint(sx * currentPoint->time, sy * currentPoint->value);
        selectSinglePoint(currentPoint);
    }
}

void ControlSplineNode::offsetPoint(const double& dx, const double& dy)
{
    if (canEditCurrentPoint()) {
        placeCurrentPoint(currentPoint->time + dx, currentPoint->value + dy);
        selectSinglePoint(currentPoint);
    }
}

bool ControlSplineNode::canEditCurrentPoint() const
{
    return selectedPoints.size() < 2 && heldCurrent();
}

void ControlSplineNode::placeCurrentPoint(const double& time, const double& value)
{
    spline()->setTime(currentPoint, time);
    spline()->setPos(currentPoint, value);
}

void ControlSplineNode::moveHandle(const double& x, const double& y)
{
    const double dx = x - currentPoint->time;
    const double dy = y - currentPoint->value;
    // Keeps the slope finite straight above the key, and away from the other side of it.
    const double nudge = 0.001 * std::sqrt(dx * dx + dy * dy);
    const double slope = dy / (dx + (dx >= 0.0 ? nudge : -nudge));
    if (!std::isfinite(slope)) {
        return; // exactly on the key there is no direction: the tangents stay
    }
    if (keyPart == leftHandle || keyPart == handleLine) {
        spline()->setTanLeft(currentPoint, slope);
    }
    if (keyPart == rightHandle || keyPart == handleLine) {
        spline()->setTanRight(currentPoint, slope);
    }
}
