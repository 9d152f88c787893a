#include "canvas/CanvasFunctionBase.h"

#include "canvas/CanvasGesture.h"
#include "canvas/FunctionEditor.h"
#include "canvas/KeyPlacing.h"
#include "commands/CommandAddFunc.h"
#include "commands/CommandChangePoints.h"
#include "commands/CommandDelPoints.h"
#include "commands/CommandSetPointsType.h"
#include "curves/CurveNode.h"
#include "curves/CurveType.h"
#include "curves/SelectedKeys.h"
#include "editor/CurveEditor.h"
#include "graphs/SplineCurveGraph.h"

using curve_editor::CommandAddFunc;
using curve_editor::CommandChangePoints;
using curve_editor::CommandDelPoints;
using curve_editor::CommandSetPointsType;

namespace {

/// Calls `edit(spline, key)` for every selected key of the graphs that is still in its spline.
template <class Edit>
void forEachSelectedKey(const QList<SplineCurveGraph*>& graphs, const Edit& edit)
{
    for (SplineCurveGraph* graph : graphs) {
        ControlSplineNode& selection = graph->selection();
        if (!selection.hasSelection()) {
            continue;
        }
        const QList<PointInfo*> keys = selection.heldPoints();
        for (PointInfo* key : keys) {
            edit(selection.spline(), key);
        }
    }
}

void flatten(SplineBase* spline, PointInfo* key)
{
    spline->setBezier(key, PointInfo::BezierData());
    PointInfo::TcbData tcb = key->tcb;
    tcb.tension = 1.0;
    tcb.easeTo = 0.0;
    tcb.easeFrom = 0.0;
    spline->setTcb(key, tcb); // a unified key loses its continuity there
}

void scaleKeys(ControlSplineNode& selection, const bool& many, const double& sx, const double& sy)
{
    if (!many) {
        selection.scalePoint(sx, sy);
        return;
    }
    placeKeys(selection,
              [&](const PointInfo& key) { return QPointF(sx * key.time, sy * key.value); });
}

} // namespace

void CanvasFunctionBase::deleteKeys()
{
    endGestures();
    editor->getCmdManager()->doCommand(new CommandDelPoints(editor));
}

void CanvasFunctionBase::deleteSelectedNodes()
{
    endGestures();
    for (SplineCurveGraph* graph : keyContainers()) {
        if (graph->selection().hasSelection()) {
            deleteKeys();
            return;
        }
    }
}

void CanvasFunctionBase::setPointsType(const zk_spline::interpolationType& type)
{
    endGestures();
    if (!editing.isEmpty()) {
        editor->getCmdManager()->doCommand(new CommandSetPointsType(editor, type));
    }
}

void CanvasFunctionBase::setSelectedLinear()
{
    setPointsType(zk_spline::linear);
}

void CanvasFunctionBase::setSelectedBezier()
{
    setPointsType(zk_spline::bezier);
}

void CanvasFunctionBase::setSelectedTcb()
{
    setPointsType(zk_spline::tcb);
}

void CanvasFunctionBase::setSelectedStep()
{
    setPointsType(zk_spline::stepped);
}

void CanvasFunctionBase::flatTangents()
{
    endGestures();
    beginChangeCommand();
    forEachSelectedKey(editableGraphs(), flatten);
    commitChangeCommand();
    updateCanvas();
    widget->refreshKeysDialog();
}

void CanvasFunctionBase::setTangentsBroken(const bool& broken)
{
    endGestures();
    auto command = std::make_unique<CommandChangePoints>(editor);
    forEachSelectedKey(editableGraphs(), [&broken](SplineBase* spline, PointInfo* key) {
        if (broken) {
            spline->breakTangent(key);
        } else {
            spline->unifyTangent(key);
        }
    });
    if (command->captureFinalState()) {
        editor->getCmdManager()->doCommand(command.release());
    }
}

void CanvasFunctionBase::scaleSelection(const double& sx, const double& sy)
{
    endGestures();
    beginChangeCommand();
    gesture->commands.describeChange("Scale Control Points");
    const bool isScaling = !editing.isEmpty() && !(sx == 1.0 && sy == 1.0);
    if (isScaling) {
        const SelectionState state = selectionState();
        if (hasKeys(editingType()) && state.any) {
            for (SplineCurveGraph* graph : editableGraphs()) {
                scaleKeys(graph->selection(), state.many, sx, sy);
            }
        }
        updateCanvas();
    }
    commitChangeCommand();
}

void CanvasFunctionBase::panSelection(const double& dx, const double& dy)
{
    endGestures();
    beginMoveCommand();
    const bool isPanning = !editing.isEmpty() && !(dx == 0.0 && dy == 0.0);
    if (isPanning && hasKeys(editingType())) {
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

void CanvasFunctionBase::switchAddFuncToSpline()
{
    endGestures();
    const int type = editingType();
    if (type == expressionCurve || type == splinePlusExpressionCurve) {
        editor->getCmdManager()->doCommand(new CommandAddFunc(editor));
    }
}
