// The behaviours at the ends, and the types of the selected keys.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/CommandSetLastNode.h"
#include "commands/CommandSetPointsType.h"

using namespace curve_editor;

namespace {

enum curveEnds : int
{
    firstEnd,
    lastEnd
};

void setBehaviour(CurveEditor* editor, SplineBase::nodeType behaviour, curveEnds end)
{
    CurveCommandsManager* const manager = editor->getCmdManager();
    manager->endGestures();
    manager->doCommand(new CommandSetLastNode(editor, behaviour, end == firstEnd));
}

void setInterpolation(CurveEditor* editor, zk_spline::interpolationType type)
{
    CurveCommandsManager* const manager = editor->getCmdManager();
    FunctionEditor* const view = editor->getFunctionEditor();
    manager->endGestures();
    if (!view->canvas().editingCurves().isEmpty()) {
        manager->doCommand(new CommandSetPointsType(editor, type));
    }
    view->refreshKeysDialog();
}

} // namespace

void CurveEditor::setFirstNodeZero()
{
    setBehaviour(this, SplineBase::zero, firstEnd);
}

void CurveEditor::setFirstNodeConstant()
{
    setBehaviour(this, SplineBase::constant, firstEnd);
}

void CurveEditor::setLastNodeZero()
{
    setBehaviour(this, SplineBase::zero, lastEnd);
}

void CurveEditor::setLastNodeConstant()
{
    setBehaviour(this, SplineBase::constant, lastEnd);
}

void CurveEditor::setLastNodeLoop()
{
    setBehaviour(this, SplineBase::loop, lastEnd);
}

void CurveEditor::setLastNodeLoopOffset()
{
    setBehaviour(this, SplineBase::loopOffset, lastEnd);
}

void CurveEditor::setLastNodeFollowTangent()
{
    setBehaviour(this, SplineBase::followTangent, lastEnd);
}

/// Before the first key only zero and constant are offered; any other index makes no command.
void CurveEditor::changeNodeFirstType(int index)
{
    if (index == SplineBase::zero || index == SplineBase::constant) {
        setBehaviour(this, static_cast<SplineBase::nodeType>(index), firstEnd);
    }
}

void CurveEditor::changeNodeLastType(int index)
{
    if (index >= SplineBase::zero && index <= SplineBase::followTangent) {
        setBehaviour(this, static_cast<SplineBase::nodeType>(index), lastEnd);
    }
}

void CurveEditor::setSelectedLinear()
{
    setInterpolation(this, zk_spline::linear);
}

void CurveEditor::setSelectedBezier()
{
    setInterpolation(this, zk_spline::bezier);
}

void CurveEditor::setSelectedTcb()
{
    setInterpolation(this, zk_spline::tcb);
}

void CurveEditor::setSelectedStep()
{
    setInterpolation(this, zk_spline::stepped);
}
