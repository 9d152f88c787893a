// The behaviours at the ends, and the types of the selected keys.

#include "editor/CurveEditor.h"

#include "canvas/FunctionEditor.h"
#include "commands/CommandSetLastNode.h"
#include "commands/CommandSetPointsType.h"

using namespace curve_editor;

void CurveEditor::doSetLastNode(const int& behaviour, const bool& isFirst)
{
    manager.endGestures();
    manager.doCommand(
        new CommandSetLastNode(this, static_cast<SplineBase::nodeType>(behaviour), isFirst));
}

void CurveEditor::doSetPointsType(const int& interpolation)
{
    manager.endGestures();
    if (!functionEditor->canvas().editingCurves().isEmpty()) {
        manager.doCommand(new CommandSetPointsType(
            this, static_cast<zk_spline::interpolationType>(interpolation)));
    }
    functionEditor->refreshKeysDialog();
}

void CurveEditor::setFirstNodeZero()
{
    doSetLastNode(SplineBase::zero, true);
}

void CurveEditor::setFirstNodeConstant()
{
    doSetLastNode(SplineBase::constant, true);
}

void CurveEditor::setLastNodeZero()
{
    doSetLastNode(SplineBase::zero, false);
}

void CurveEditor::setLastNodeConstant()
{
    doSetLastNode(SplineBase::constant, false);
}

void CurveEditor::setLastNodeLoop()
{
    doSetLastNode(SplineBase::loop, false);
}

void CurveEditor::setLastNodeLoopOffset()
{
    doSetLastNode(SplineBase::loopOffset, false);
}

void CurveEditor::setLastNodeFollowTangent()
{
    doSetLastNode(SplineBase::followTangent, false);
}

/// Before the first key only zero and constant are offered; any other index makes no command.
void CurveEditor::changeNodeFirstType(int index)
{
    if (index == SplineBase::zero || index == SplineBase::constant) {
        doSetLastNode(index, true);
    }
}

void CurveEditor::changeNodeLastType(int index)
{
    if (index >= SplineBase::zero && index <= SplineBase::followTangent) {
        doSetLastNode(index, false);
    }
}

void CurveEditor::setSelectedLinear()
{
    doSetPointsType(zk_spline::linear);
}

void CurveEditor::setSelectedBezier()
{
    doSetPointsType(zk_spline::bezier);
}

void CurveEditor::setSelectedTcb()
{
    doSetPointsType(zk_spline::tcb);
}

void CurveEditor::setSelectedStep()
{
    doSetPointsType(zk_spline::stepped);
}
