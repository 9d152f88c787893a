// What is done to the selected keys.

#include "canvas/CanvasFunctionBase.h"

#include "canvas/CanvasGestures.h"
#include "canvas/CanvasHost.h"
#include "canvas/FunctionEditor.h"
#include "canvas/KeyPlacing.h"
#include "commands/CommandAddFunc.h"
#include "commands/CommandDelPoints.h"
#include "commands/CommandSetPointsType.h"
#include "commands/CurveCommandsManager.h"
#include "curves/CurveNode.h"
#include "curves/SelectedKeys.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"

using curve_editor::CommandAddFunc;
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

void openChange(PendingCommands& commands)
{
    commands.beginChange();
}

void openScaling(PendingCommands& commands)
{
    commands.beginChange();
    commands.describeChange("Scale Control Points");
}

void openMove(PendingCommands& commands)
{
    commands.beginMove();
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

/// Each curve by its own number of keys, where scaling asks the whole set.
void panKeys(ControlSplineNode& selection, const QPointF& way)
{
    if (!selection.hasSelection()) {
        return;
    }
    if (selection.selectedPoints.size() > 1) {
        shiftKeys(selection, way);
    } else {
        selection.offsetPoint(way.x(), way.y());
    }
}

} // namespace

void CanvasFunctionBase::deleteKeys()
{
    endGestures();
    host->manager().doCommand(new CommandDelPoints(editor));
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
        host->manager().doCommand(new CommandSetPointsType(editor, type));
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
    gestures->run(openChange, [this] { forEachSelectedKey(editableGraphs(), flatten); });
    updateCanvas();
    widget->refreshKeysDialog();
}

void CanvasFunctionBase::setTangentsBroken(const bool& broken)
{
    endGestures();
    gestures->run(openChange, [this, broken] {
        forEachSelectedKey(editableGraphs(), [broken](SplineBase* spline, PointInfo* key) {
            if (broken) {
                spline->breakTangent(key);
            } else {
                spline->unifyTangent(key);
            }
        });
    });
}

void CanvasFunctionBase::scaleSelection(const double& sx, const double& sy)
{
    endGestures();
    gestures->run(openScaling, [this, sx, sy] {
        if (!isEditing() || (sx == 1.0 && sy == 1.0)) {
            return;
        }
        const SelectionState state = selectionState();
        if (hasKeys(editingType()) && state.any) {
            for (SplineCurveGraph* graph : editableGraphs()) {
                scaleKeys(graph->selection(), state.many, sx, sy);
            }
        }
        updateCanvas();
    });
}

void CanvasFunctionBase::panSelection(const double& dx, const double& dy)
{
    endGestures();
    gestures->run(openMove, [this, dx, dy] {
        if (!isEditing() || (dx == 0.0 && dy == 0.0) || !hasKeys(editingType())) {
            return;
        }
        for (SplineCurveGraph* graph : editableGraphs()) {
            panKeys(graph->selection(), QPointF(dx, dy));
        }
        updateCanvas();
    });
}

void CanvasFunctionBase::switchAddFuncToSpline()
{
    endGestures();
    const int type = editingType();
    if (type == expressionCurve || type == splinePlusExpressionCurve) {
        host->manager().doCommand(new CommandAddFunc(editor));
    }
}
