// Where the handles of a key end, and how they look.

#include "core/Truncate.h"
#include "graphs/CanvasColors.h"
#include "graphs/ChosenKeys.h"
#include "graphs/CurvePen.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"

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

/// A handle that can be grabbed ends in a circle.
void drawHandle(CurvePen& pen, const QColor& color, const QPoint& key, const QPoint& end,
                const bool& grabbable)
{
    pen.setColor(color, CurvePen::solid);
    pen.drawLine(key, end);
    if (grabbable) {
        pen.drawDisc(end, color);
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
    if (keys.empty() || chosenKeys.isEmpty()) {
        return;
    }
    CurvePen pen(painter);
    int guided = -1; // the column that has guides; more would fill the gaps between their dots
    for (auto [i, end] = keysInView(keys); i < end; ++i) {
        const QPoint pixel = keyPixels.at(static_cast<qsizetype>(i));
        const bool touches = pixel.x() + 2 > 0 && pixel.x() - 2 < view->viewWidth &&
                             pixel.y() + 2 > 0 && pixel.y() - 2 < view->viewHeight;
        if (touches && chosenKeys.contains(keys[i])) {
            if (pixel.x() != guided) {
                drawGuides(pen, pixel);
                guided = pixel.x();
            }
            drawHandles(pen, static_cast<int>(i), keys);
        }
    }
}

void SplineCurveGraph::drawGuides(CurvePen& pen, const QPoint& pixel) const
{
    pen.setColor(CanvasColors::shared().controlPointSelected, CurvePen::dotted);
    pen.drawLine(pixel, QPoint(pixel.x(), 0));
    pen.drawLine(pixel, QPoint(pixel.x(), view->viewHeight));
}

/// The right handle belongs to the segment behind the key, so it needs a curved next key; the
/// left one depends on the key itself.
void SplineCurveGraph::drawHandles(CurvePen& pen, const int& index,
                                   const std::vector<PointInfo*>& keys) const
{
    const CanvasColors& colors = CanvasColors::shared();
    const int last = static_cast<int>(keys.size()) - 1;
    const PointInfo* key = keys[static_cast<std::size_t>(index)];
    const QPoint pixel = keyPixels.at(index);
    const bool grabbable = key->type != zk_spline::tcb;
    const PickedHandles picked(keySelection.keyPart, key);

    if (index < last && isCurved(keys[static_cast<std::size_t>(index) + 1])) {
        const QColor color = key->unifiedTangents ? colors.controller : colors.brokenController;
        drawHandle(pen, grabbable && picked.right ? colors.controllerSelected : color, pixel,
                   rightHandlePos(pixel, index, index == 0), grabbable);
    }
    if (index > 0 && isCurved(key)) {
        drawHandle(pen, grabbable && picked.left ? colors.controllerSelected : colors.controller,
                   pixel, leftHandlePos(pixel, index, index == last), grabbable);
    }
}
