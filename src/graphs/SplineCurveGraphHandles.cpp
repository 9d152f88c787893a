// Where the handles of a key end, and how they look.

#include "core/Truncate.h"
#include "graphs/CanvasColors.h"
#include "graphs/ChosenKeys.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double handleLength = 45.0;
constexpr double lengthOffset = static_cast<double>(0.333f);

bool isCurved(const PointInfo* key)
{
    return key->type == zk_spline::bezier || key->type == zk_spline::tcb;
}

/// `direction` is 1 to the right of the key and -1 to its left.
QPoint handlePos(const ViewPort& view, const QPoint& keyPixel, const double& direction,
                 const double& slope, const double& length)
{
    const double aspect = (view.maxX - view.minX) *
                          (static_cast<double>(view.viewHeight) / view.viewWidth) /
                          (view.maxY - view.minY);
    const double pixelSlope = slope * aspect;
    const double root =
        static_cast<double>(std::sqrt(static_cast<float>(pixelSlope * pixelSlope + 1.0)));
    const double across = direction / root;
    const double up = pixelSlope * across;
    // A slope that is not a number, or too steep for one, leaves the handle on its key.
    if (!std::isfinite(across) || !std::isfinite(up)) {
        return keyPixel;
    }
    return QPoint(truncateToPixel(length * across + keyPixel.x()),
                  truncateToPixel(keyPixel.y() - length * up));
}

double lengthOfHandle(const bool& fixedLength, const double& len)
{
    return fixedLength ? handleLength : (len + lengthOffset) * handleLength;
}

/// Which handles of a key the mouse holds.
struct PickedHandles
{
    bool left = false;
    bool right = false;

    PickedHandles(const int& keyPart, const PointInfo* key)
        : right(keyPart == ControlSplineNode::handleLine ||
                keyPart == ControlSplineNode::rightHandle)
    {
        if (isCurved(key)) {
            left = keyPart == ControlSplineNode::handleLine ||
                   keyPart == ControlSplineNode::leftHandle;
            right = right || (left && key->unifiedTangents);
            left = left || (right && key->unifiedTangents);
        }
    }
};

void setHandleColor(QPainter* painter, const QColor& color)
{
    painter->setPen(QPen(QBrush(color), 1.0, Qt::SolidLine));
    painter->setBrush(color);
}

/// A handle that can be grabbed ends in a circle.
void drawHandle(QPainter* painter, const QPoint& key, const QPoint& end, const bool& grabbable)
{
    painter->drawLine(key, end);
    if (grabbable) {
        painter->drawEllipse(QRect(end.x() - 2, end.y() - 2, 4, 4));
    }
}

} // namespace

QPoint SplineCurveGraph::rightHandlePos(const QPoint& keyPixel, const int& index,
                                        const bool& fixedLength) const
{
    const SplineBase* spline = keySelection.spline();
    if (!spline || !view || index < 0) {
        return keyPixel;
    }
    double len = 0.0;
    // The right tangent is asked for by the index of the key behind it.
    const double slope = spline->getTangentRightAtNode(static_cast<unsigned>(index) + 1u, len);
    return handlePos(*view, keyPixel, 1.0, slope, lengthOfHandle(fixedLength, len));
}

QPoint SplineCurveGraph::leftHandlePos(const QPoint& keyPixel, const int& index,
                                       const bool& fixedLength) const
{
    const SplineBase* spline = keySelection.spline();
    if (!spline || !view || index < 0) {
        return keyPixel;
    }
    double len = 0.0;
    const double slope = spline->getTangentLeftAtNode(static_cast<unsigned>(index), len);
    return handlePos(*view, keyPixel, -1.0, slope, lengthOfHandle(fixedLength, len));
}

void SplineCurveGraph::drawTangents(QPainter* painter)
{
    const std::vector<PointInfo*>& keys = keysWithPixels();
    const ChosenKeys chosenKeys(keySelection);
    if (chosenKeys.isEmpty()) {
        return;
    }
    const qsizetype count = std::min(keyPixels.size(), static_cast<qsizetype>(keys.size()));
    for (qsizetype i = 0; i < count; ++i) {
        const QPoint pixel = keyPixels.at(i);
        const bool touches = pixel.x() + 2 > 0 && pixel.x() - 2 < view->viewWidth &&
                             pixel.y() + 2 > 0 && pixel.y() - 2 < view->viewHeight;
        if (touches && chosenKeys.contains(keys[static_cast<std::size_t>(i)])) {
            drawGuides(painter, pixel);
            drawHandles(painter, static_cast<int>(i), keys);
        }
    }
}

void SplineCurveGraph::drawGuides(QPainter* painter, const QPoint& pixel) const
{
    painter->setPen(QPen(QBrush(CanvasColors::shared().controlPointSelected), 1.0, Qt::DotLine));
    painter->drawLine(pixel, QPoint(pixel.x(), 0));
    painter->drawLine(pixel, QPoint(pixel.x(), view->viewHeight));
}

/// The right handle belongs to the segment behind the key, so it needs a curved next key; the
/// left one depends on the key itself.
void SplineCurveGraph::drawHandles(QPainter* painter, const int& index,
                                   const std::vector<PointInfo*>& keys) const
{
    const CanvasColors& colors = CanvasColors::shared();
    const int last = static_cast<int>(keys.size()) - 1;
    const PointInfo* key = keys[static_cast<std::size_t>(index)];
    const QPoint pixel = keyPixels.at(index);
    const bool grabbable = key->type != zk_spline::tcb;
    const PickedHandles picked(keySelection.keyPart, key);

    if (index < last) {
        const QColor color = key->unifiedTangents ? colors.controller : colors.brokenController;
        setHandleColor(painter, grabbable && picked.right ? colors.controllerSelected : color);
        if (isCurved(keys[static_cast<std::size_t>(index) + 1])) {
            drawHandle(painter, pixel, rightHandlePos(pixel, index, index == 0), grabbable);
        }
    }
    if (index > 0 && isCurved(key)) {
        setHandleColor(painter,
                       grabbable && picked.left ? colors.controllerSelected : colors.controller);
        drawHandle(painter, pixel, leftHandlePos(pixel, index, index == last), grabbable);
    }
}
