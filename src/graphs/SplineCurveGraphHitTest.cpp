// What lies under a pixel or in a rectangle.

#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

// A point is hit when its Manhattan distance in pixels is below this.
constexpr int reach = 6;
constexpr qint64 lineReach = 10;

qint64 dot(const QPoint& a, const QPoint& b)
{
    return static_cast<qint64>(a.x()) * b.x() + static_cast<qint64>(a.y()) * b.y();
}

/// What of a Bezier key lies within reach; all points relative to the mouse. -1 for nothing.
int partWithinReach(const QPoint& key, const QPoint& right, const QPoint& left)
{
    if (key.manhattanLength() < reach) {
        return ControlSplineNode::keyItself;
    }
    if (right.manhattanLength() < reach) {
        return ControlSplineNode::rightHandle;
    }
    if (left.manhattanLength() < reach) {
        return ControlSplineNode::leftHandle;
    }
    const QPoint line = right - left;
    const qint64 rightDot = dot(key, right);
    const qint64 leftDot = dot(key, left);
    const bool isBetween = (rightDot < 0 && leftDot > 0) || (rightDot > 0 && leftDot < 0);
    // A sum, not the difference of a cross product: that is the rule by which the line is hit.
    const qint64 cross =
        std::abs(static_cast<qint64>(key.y()) * line.x() + static_cast<qint64>(key.x()) * line.y());
    if (isBetween && cross < lineReach * line.manhattanLength()) {
        return ControlSplineNode::handleLine;
    }
    return -1;
}

} // namespace

/// Keys ascend in time; but a time that is no number has some pixel or other.
bool SplineCurveGraph::pixelsAscend() const
{
    const std::vector<PointInfo*>& keys = keySelection.spline()->getControlPoints();
    return view->minX < view->maxX && !std::isnan(keys.back()->time);
}

/// The first key whose column is near enough to be hit.
qsizetype SplineCurveGraph::firstWithinReach(const int& column) const
{
    if (!pixelsAscend()) {
        return 0;
    }
    const auto found =
        std::lower_bound(keyPixels.cbegin(), keyPixels.cend(), column - reach,
                         [](const QPoint& key, const int& x) { return key.x() <= x; });
    return found - keyPixels.cbegin();
}

PointInfo* SplineCurveGraph::hitTest(const QPoint& pixel)
{
    keySelection.keyPart = ControlSplineNode::keyItself;
    const std::vector<PointInfo*>& keys = keysWithPixels();
    const qsizetype count = std::min(keyPixels.size(), static_cast<qsizetype>(keys.size()));
    if (count == 0) {
        return nullptr;
    }

    const PointInfo* const current = keySelection.heldCurrent();
    if (current && keySelection.selectedPoints.size() == 1) {
        const int index = keySelection.spline()->findIndex(current);
        if (index >= 0 && index < count &&
            keys[static_cast<std::size_t>(index)]->type == zk_spline::bezier) {
            const QPoint key = keyPixels.at(index);
            const QPoint right = rightHandlePos(key, index, index == 0);
            const QPoint left = leftHandlePos(key, index, index == static_cast<int>(count) - 1);
            const int part = partWithinReach(key - pixel, right - pixel, left - pixel);
            if (part >= 0) {
                keySelection.keyPart = part;
                return keys[static_cast<std::size_t>(index)];
            }
        }
    }

    for (qsizetype i = firstWithinReach(pixel.x()); i < count; ++i) {
        if ((keyPixels.at(i) - pixel).manhattanLength() < reach) {
            return keys[static_cast<std::size_t>(i)];
        }
        if (pixelsAscend() && keyPixels.at(i).x() - pixel.x() >= reach) {
            break;
        }
    }
    return nullptr;
}

bool SplineCurveGraph::selectInRect(const bool& add, const double& xMin, const double& xMax,
                                    const double& yMin, const double& yMax)
{
    QSet<const PointInfo*> kept;
    if (add) {
        const QList<PointInfo*> held = keySelection.heldPoints();
        kept = QSet<const PointInfo*>(held.cbegin(), held.cend());
    }
    keySelection.clear();
    SplineBase* spline = keySelection.spline();
    if (!spline) {
        return false;
    }
    QList<PointInfo*> taken;
    for (PointInfo* key : spline->getControlPoints()) {
        const bool isInside =
            xMin < key->time && key->time < xMax && yMin < key->value && key->value < yMax;
        if (isInside || kept.contains(key)) {
            taken.append(key);
        }
    }
    keySelection.selectPoints(taken);
    if (!taken.isEmpty()) {
        keySelection.setCurrentPoint(taken.last());
    }
    return keySelection.currentPoint != nullptr;
}
