#include "canvas/KeyDrag.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasHost.h"
#include "canvas/FrameGrid.h"
#include "canvas/GestureStage.h"
#include "canvas/KeyPlacing.h"
#include "canvas/ModeControl.h"
#include "curves/CurveNode.h"
#include "curves/SelectedKeys.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"

#include <cmath>
#include <utility>

using curve_editor::CanvasMode;

namespace {

/// The nearest multiple of the grid step within reach, else the number itself; on a tie the
/// lower multiple wins. `radius` is a share of the step.
double snapToGrid(double number, double step, double radius)
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

} // namespace

void KeyDrag::begin(bool wholeKeys)
{
    stage.startWorld = stage.lastWorld;
    commands.beginMove();
    if (wholeKeys) {
        commands.beginChange();
    }
    isHeld = true;
    stage.host->modes().setMode(CanvasMode::MOVING);
}

void KeyDrag::step(const QPointF& world)
{
    if (!isHeld) {
        commands.beginMove();
        commands.beginChange();
    }
    const CanvasFunctionBase& canvas = stage.canvas;
    const QPointF target = targetOf(world);
    // Before the host hears of the step: in its slot the next one may come.
    const QPointF way = target - std::exchange(stage.lastWorld, target);
    stage.view->showLabels = isHeld && (canvas.toolTipsOn || canvas.toolTipsWhileDragging);
    const bool many = canvas.selectionState().many;
    const QList<CurveNode*> curves = canvas.editingCurves(); // the host may change the set
    for (CurveNode* curve : curves) {
        SplineCurveGraph* graph = hasKeys(curve->curveType()) ? curve->splineGraph() : nullptr;
        if (graph && graph->selection().hasSelection()) {
            dragSelection(*graph, many, world, target, way);
            if (curves.size() == 1) {
                stage.host->reportCurve(curve->dotName());
            }
        }
    }
}

/// Where the axis lock, then the grid leave the point.
QPointF KeyDrag::targetOf(const QPointF& world) const
{
    const CanvasFunctionBase& canvas = stage.canvas;
    QPointF target = world;
    if (stage.host->modes().mode() == CanvasMode::SNAP) {
        const QPointF way = world - stage.startWorld;
        if (std::fabs(way.x()) > std::fabs(way.y())) {
            target.setY(stage.startWorld.y());
        } else {
            target.setX(stage.startWorld.x());
        }
    }
    const FrameGrid& grid = *canvas.frameGrid();
    if (canvas.horizontalSnap) {
        target.setX(snapToGrid(target.x(), grid.snapStepX, canvas.hSnapRadius));
    }
    if (canvas.verticalSnap) {
        target.setY(snapToGrid(target.y(), grid.snapStepY, canvas.vSnapRadius));
    }
    return target;
}

void KeyDrag::dragSelection(SplineCurveGraph& graph, bool many, const QPointF& raw,
                            const QPointF& target, const QPointF& way)
{
    ControlSplineNode& selection = graph.selection();
    if (many) {
        const CanvasFunctionBase& canvas = stage.canvas;
        stage.showMark = stage.showMark || canvas.horizontalSnap || canvas.verticalSnap;
        shiftKeys(selection, way);
    } else if (selection.keyPart == ControlSplineNode::keyItself) {
        selection.movePoint(target.x(), target.y());
    } else {
        selection.movePoint(raw.x(), raw.y()); // handles are neither snapped nor locked
    }
}

bool KeyDrag::isOfMouse() const
{
    return isHeld;
}

bool KeyDrag::admits(CanvasMode mode) const
{
    return isMoveMode(mode);
}
