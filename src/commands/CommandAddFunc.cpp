#include "commands/CommandAddFunc.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/EligibleCurves.h"
#include "commands/RecordExpression.h"
#include "curves/CurveNode.h"
#include "curves/CurveType.h"
#include "editor/CurveEditor.h"

#include <utility>

namespace curve_editor {

CommandAddFunc::CommandAddFunc(CurveEditor* curveEditor)
    : editor(curveEditor)
    , functionEditor(curveEditor->getFunctionEditor())
    , newAddFunc(functionEditor->canvas().editingType() == expressionCurve)
{
    const QList<CurveNode*> editing = functionEditor->canvas().editingCurves();
    for (CurveNode* const curve : editing) {
        const int type = curve->curveType();
        NodeStruct* const record = recordOf(editor, curve);
        const bool hasExpression = type == expressionCurve || type == splinePlusExpressionCurve;
        if (hasExpression && showsRecord(curve, record)) {
            curves.append({record, type == splinePlusExpressionCurve});
        }
    }
}

bool CommandAddFunc::execute()
{
    for (const Curve& curve : std::as_const(curves)) {
        setSplineAdded(editor, curve.node, newAddFunc);
    }
    report();
    return true;
}

void CommandAddFunc::undo()
{
    for (const Curve& curve : std::as_const(curves)) {
        setSplineAdded(editor, curve.node, curve.oldAddFunc);
    }
    report();
}

void CommandAddFunc::redo()
{
    execute();
}

ZK_String CommandAddFunc::getDescription()
{
    return "Add Spline to Expression";
}

void CommandAddFunc::report()
{
    QList<NodeStruct*> nodes;
    for (const Curve& curve : std::as_const(curves)) {
        nodes.append(curve.node);
    }
    editor->refreshEditor();
    editor->emitSignalCurvesHaveChanged(nodes);
}

} // namespace curve_editor
