#include "canvas/CanvasFunctionBase.h"

#include "canvas/FrameGrid.h"
#include "canvas/MousePixel.h"
#include "canvas/SplineCurveGraph.h"
#include "canvas/ViewPort.h"
#include "curves/CurveNode.h"
#include "curves/CurveType.h"
#include "curves/KeyRetiming.h"
#include "editor/CurveEditor.h"

#include <QMouseEvent>

#include <cmath>
#include <vector>

namespace {

/// The nearest multiple of the grid step within reach, else the number itself; on a tie the
/// lower multiple wins. `radius` is a share of the step.
double snapToGrid(const double& number, const double& step, const double& radius)
{
    const double reach = step * radius;
    const double low = std::floor(number / step) * step;
    const double high = std::ceil(number / step) * step;
    const double toLow = number - low;
    const double toHigh = high - number;
    if (toHigh >= toLow && reach >= toLow) {
        return low;
    }
    if (toLow >= toHigh && reach >= toHigh) {
        return high;
    }
    return number;
}

/// Puts the selected keys that their spline holds where `placeOf` says.
template <class Place>
void placeKeys(const ControlSplineNode& selection, const Place& placeOf)
{
    const QList<PointInfo*> keys = selection.heldPoints();
    std::vector<RetimedKey> placed;
    placed.reserve(static_cast<std::size_t>(keys.size()));
    for (PointInfo* key : keys) {
        const QPointF place = placeOf(*key);
        key->value = place.y();
        placed.push_back({key, place.x()});
    }
    if (!placed.empty()) {
        retimeKeys(*selection.spline(), placed);
        selection.spline()->setChanged(true);
    }
}

/// The last key that was moved becomes current.
void shiftKeys(ControlSplineNode& selection, const QPointF& way)
{
    placeKeys(selection, [&way](const PointInfo& key) {
        return QPointF(key.time + way.x(), key.value + way.y());
    });
    const QList<PointInfo*> moved = selection.heldPoints();
    if (!moved.isEmpty()) {
        selection.setCurrentPoint(moved.last());
    }
}

} // namespace

void CanvasFunctionBase::dragPoint(const QPoint& pixel, double& x, double& y) const
{
    worldAt(pixel, x, y);
    if (editor->getCurrentMode() == CurveEditor::SNAP) {
        if (std::fabs(x - startWorldX) > std::fabs(y - startWorldY)) {
            y = startWorldY;
        } else {
            x = startWorldX;
        }
    }
    if (horizontalSnap) {
        x = snapToGrid(x, grid->snapStepX, hSnapRadius);
    }
    if (verticalSnap) {
        y = snapToGrid(y, grid->snapStepY, vSnapRadius);
    }
}

void CanvasFunctionBase::move(QMouseEvent* event)
{
    const CurveEditor::curveEditorModes mode = editor->getCurrentMode();
    const bool isMoving = mode == CurveEditor::MOVING || mode == CurveEditor::SNAP;
    if (!isMoving || editing.isEmpty() || editingType() == expressionCurve) {
        return;
    }
    const QPoint pixel = mousePixel(event->position());
    double rawX = 0.0;
    double rawY = 0.0;
    worldAt(pixel, rawX, rawY);
    double x = 0.0;
    double y = 0.0;
    dragPoint(pixel, x, y);
    view->showLabels = dragging && (toolTipsOn || toolTipsWhileDragging);

    const QPointF delta(x - lastWorldX, y - lastWorldY);
    const bool many = selectionState().many;
    const QList<CurveNode*> curves = editing; // the host hears of a drag and may change the set
    for (CurveNode* curve : curves) {
        SplineCurveGraph* graph = hasKeys(curve->curveType()) ? curve->splineGraph() : nullptr;
        if (graph && graph->selection().hasSelection()) {
            dragSelection(graph, many, QPointF(rawX, rawY), QPointF(x, y), delta);
            if (curves.size() == 1) {
                reportDrag(curve);
            }
        }
    }
    lastWorldX = x;
    lastWorldY = y;
}

void CanvasFunctionBase::dragSelection(SplineCurveGraph* graph, const bool& many,
                                       const QPointF& raw, const QPointF& target,
                                       const QPointF& delta)
{
    ControlSplineNode& selection = graph->selection();
    if (many) {
        if (horizontalSnap || verticalSnap) {
            showMark = true;
        }
        shiftKeys(selection, delta);
    } else if (selection.keyPart == ControlSplineNode::keyItself) {
        selection.movePoint(target.x(), target.y());
    } else {
        selection.movePoint(raw.x(), raw.y()); // handles are neither snapped nor locked
    }
}

void CanvasFunctionBase::reportDrag(CurveNode* curve)
{
    const QString dotName = curve->dotName();
    QString nodeName = dotName.section(QLatin1Char('.'), 0, 0);
    QString curveName = dotName.section(QLatin1Char('.'), 1);
    editor->emitSignalCurveHasChanged(nodeName, curveName);
}

void CanvasFunctionBase::scaleSelection(const double& sx, const double& sy)
{
    beginChangeCommand();
    describeChange("Scale Control Points");
    const bool isScaling = !editing.isEmpty() && !(sx == 1.0 && sy == 1.0);
    if (isScaling) {
        const SelectionState state = selectionState();
        if (hasEditableKeys() && state.any) {
            for (SplineCurveGraph* graph : editableGraphs()) {
                scaleKeys(graph->selection(), state.many, sx, sy);
            }
        }
        updateCanvas();
    }
    commitChangeCommand();
}

void CanvasFunctionBase::scaleKeys(ControlSplineNode& selection, const bool& many, const double& sx,
                                   const double& sy)
{
    if (!many) {
        selection.scalePoint(sx, sy);
        return;
    }
    placeKeys(selection,
              [&](const PointInfo& key) { return QPointF(sx * key.time, sy * key.value); });
}

void CanvasFunctionBase::panSelection(const double& dx, const double& dy)
{
    beginMoveCommand();
    const bool isPanning = !editing.isEmpty() && !(dx == 0.0 && dy == 0.0);
    if (isPanning && hasEditableKeys()) {
        for (SplineCurveGraph* graph : editableGraphs()) {
            ControlSplineNode& selection = graph->selection();
            if (!selection.hasSelection()) {
                continue;
            }
            // Each curve by its own number of keys, where scaling asks the whole set.
            if (selection.selectedPoints.size() > 1) {
                shiftKeys(selection, QPointF(dx, dy));
            } else {
                selection.offsetPoint(dx, dy);
            }
        }
        updateCanvas();
    }
    commitMoveCommand();
}
