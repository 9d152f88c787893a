#include "canvas/CanvasGesture.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FrameGrid.h"
#include "canvas/KeyPlacing.h"
#include "curves/CurveNode.h"
#include "curves/CurveType.h"
#include "curves/DottedName.h"
#include "curves/SelectedKeys.h"
#include "editor/CurveEditor.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"

#include <cmath>
#include <utility>

namespace {

using Mode = CurveEditor::curveEditorModes;

bool isMoveMode(const int& mode)
{
    return mode == Mode::MOVING || mode == Mode::SNAP;
}

bool isRubberMode(const int& mode)
{
    return mode == Mode::SELECTING || mode == Mode::ADDING2SEL;
}

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

} // namespace

CanvasGesture::CanvasGesture(CanvasFunctionBase& canvasLogic, CurveEditor* curveEditor,
                             ViewPort* viewPort)
    : commands(curveEditor)
    , canvas(canvasLogic)
    , editor(curveEditor)
    , view(viewPort)
{}

void CanvasGesture::press(const Qt::MouseButton& with, const QPointF& world)
{
    forget();
    button = with;
    lastWorld = world;
}

void CanvasGesture::beginMove(const QPointF& world)
{
    startWorld = world;
    commands.beginMove();
}

void CanvasGesture::beginKeyDrag(const bool& wholeKeys)
{
    beginMove(lastWorld);
    if (wholeKeys) {
        commands.beginChange();
    }
    dragging = true;
    editor->setCurrentMode(Mode::MOVING);
}

void CanvasGesture::beginRubberBand(const int& mode)
{
    commands.beginSelect();
    rubberSelect = true;
    // A rectangle of nothing, until the view draws one.
    view->newMinX = view->newMaxX = lastWorld.x();
    view->newMinY = view->newMaxY = lastWorld.y();
    editor->setCurrentMode(static_cast<Mode>(mode));
}

bool CanvasGesture::isDraggingKeys() const
{
    return isMoveMode(editor->getCurrentMode()) && canvas.isEditing() &&
           canvas.editingType() != expressionCurve;
}

void CanvasGesture::step(const QPointF& world)
{
    if (!isDraggingKeys()) {
        return;
    }
    if (!dragging) { // a host has set the mode
        commands.beginMove();
        commands.beginChange();
    }
    const QPointF target = targetOf(world);
    // Before the host hears of the step: in its slot the next one may come.
    const QPointF way = target - std::exchange(lastWorld, target);
    view->showLabels = dragging && (canvas.toolTipsOn || canvas.toolTipsWhileDragging);
    const bool many = canvas.selectionState().many;
    const QList<CurveNode*> curves = canvas.editingCurves(); // the host may change the set
    for (CurveNode* curve : curves) {
        SplineCurveGraph* graph = hasKeys(curve->curveType()) ? curve->splineGraph() : nullptr;
        if (graph && graph->selection().hasSelection()) {
            dragSelection(graph, many, world, target, way);
            if (curves.size() == 1) {
                reportDrag(curve);
            }
        }
    }
}

/// Where the axis lock, then the grid leave the point.
QPointF CanvasGesture::targetOf(const QPointF& world) const
{
    QPointF target = world;
    if (editor->getCurrentMode() == Mode::SNAP) {
        const QPointF way = world - startWorld;
        if (std::fabs(way.x()) > std::fabs(way.y())) {
            target.setY(startWorld.y());
        } else {
            target.setX(startWorld.x());
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

void CanvasGesture::dragSelection(SplineCurveGraph* graph, const bool& many, const QPointF& raw,
                                  const QPointF& target, const QPointF& way)
{
    ControlSplineNode& selection = graph->selection();
    if (many) {
        showMark = showMark || canvas.horizontalSnap || canvas.verticalSnap;
        shiftKeys(selection, way);
    } else if (selection.keyPart == ControlSplineNode::keyItself) {
        selection.movePoint(target.x(), target.y());
    } else {
        selection.movePoint(raw.x(), raw.y()); // handles are neither snapped nor locked
    }
}

void CanvasGesture::reportDrag(CurveNode* curve)
{
    curve_editor::DottedName name = curve_editor::DottedName::fromText(curve->dotName());
    editor->emitSignalCurveHasChanged(name.node, name.curve);
}

void CanvasGesture::end()
{
    const Mode mode = editor->getCurrentMode();
    if (mode != Mode::ZOOMING) {
        end(mode, editor->getUserMode());
        return;
    }
    commands.commitAll();
    forget();
    editor->setCurrentMode(editor->getUserMode());
}

/// Whoever hears of a step may end this gesture and begin another.
void CanvasGesture::end(const int& mode, const int& userMode)
{
    const unsigned mine = serial;
    view->showLabels = canvas.toolTipsOn;
    const bool hasKeysToEdit = canvas.isEditing() && canvas.editingType() != expressionCurve;
    if (hasKeysToEdit && isRubberMode(mode)) {
        commands.beginSelect();
        canvas.selectInRect(mode == Mode::ADDING2SEL);
        commands.commitSelect();
    }
    for (const auto commit : {&PendingCommands::commitMove, &PendingCommands::commitChange,
                              &PendingCommands::commitSelect}) {
        if (serial == mine) { // what another gesture has begun meanwhile is its own
            (commands.*commit)();
        }
    }
    if (serial != mine) {
        return;
    }
    showMark = showMark && !isMoveMode(mode);
    view->rectActive = false;
    view->rectValid = false;
    forget();
    if (!hasKeysToEdit || isRubberMode(mode) || isMoveMode(mode)) {
        const bool staysAdding = hasKeysToEdit && mode == Mode::ADDING2SEL;
        editor->setCurrentMode(staysAdding ? Mode::ADD2SEL : static_cast<Mode>(userMode));
    }
}

void CanvasGesture::forget()
{
    ++serial;
    rubberSelect = false;
    dragging = false;
    button = Qt::NoButton;
}

bool CanvasGesture::isOfMouse() const
{
    return dragging || rubberSelect || view->rubberDrag || view->panDrag || view->zoomDrag;
}

bool CanvasGesture::isOnKeys() const
{
    const bool hasRubberBand = view->rubberDrag && !view->viewDrag;
    return dragging || rubberSelect || hasRubberBand || !commands.isEmpty();
}

bool CanvasGesture::isRunning() const
{
    return isOfMouse() || !commands.isEmpty();
}

bool CanvasGesture::isSecondButton(const Qt::MouseButton& other) const
{
    return isOfMouse() && button != Qt::NoButton && other != button;
}

bool CanvasGesture::hasLostButton(const Qt::MouseButtons& held) const
{
    return isOfMouse() && button != Qt::NoButton && !held.testFlag(button);
}

bool CanvasGesture::admits(const int& mode) const
{
    if (dragging) {
        return isMoveMode(mode);
    }
    return !rubberSelect || isRubberMode(mode);
}
