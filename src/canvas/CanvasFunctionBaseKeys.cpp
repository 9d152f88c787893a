#include "canvas/CanvasFunctionBase.h"

#include "canvas/FunctionEditor.h"
#include "canvas/SplineCurveGraph.h"
#include "commands/CommandChangePoints.h"
#include "commands/CommandDelPoints.h"
#include "commands/CommandSetPointsType.h"
#include "curves/CurveNode.h"
#include "editor/CurveEditor.h"

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

} // namespace

void CanvasFunctionBase::deleteKeys()
{
    editor->getCmdManager()->doCommand(new CommandDelPoints(editor));
}

void CanvasFunctionBase::deleteSelectedNodes()
{
    for (SplineCurveGraph* graph : keyContainers()) {
        if (graph->selection().hasSelection()) {
            deleteKeys();
            return;
        }
    }
}

void CanvasFunctionBase::setPointsType(const zk_spline::interpolationType& type)
{
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
    beginChangeCommand();
    forEachSelectedKey(editableGraphs(), flatten);
    commitChangeCommand();
    updateCanvas();
    widget->refreshKeysDialog();
}

void CanvasFunctionBase::setTangentsBroken(const bool& broken)
{
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

void CanvasFunctionBase::describeChange(const char* description)
{
    pendingChange->setDescription(description);
}
