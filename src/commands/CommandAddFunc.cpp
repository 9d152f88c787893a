#include "commands/CommandAddFunc.h"

#include "canvas/FunctionEditor.h"
#include "commands/EligibleCurves.h"
#include "commands/RecordExpression.h"
#include "curves/CurveNode.h"
#include "curves/CurveType.h"
#include "editor/CurveEditor.h"

namespace curve_editor {

CommandAddFunc::CommandAddFunc(CurveEditor* curveEditor)
    : editor(curveEditor)
    , functionEditor(curveEditor->getFunctionEditor())
    , newAddFunc(functionEditor->canvas().editingType() == expressionCurve)
{
    const QList<CurveNode*> curves = functionEditor->canvas().editingCurves();
    for (CurveNode* const curve : curves) {
        const int type = curve->curveType();
        if (type != expressionCurve && type != splinePlusExpressionCurve) {
            continue;
        }
        if (NodeStruct* const record = recordOf(editor, curve)) {
            nodes.append(record);
            oldAddFunc.append(type == splinePlusExpressionCurve);
        }
    }
}

bool CommandAddFunc::execute()
{
    for (const NodeStruct* const node : std::as_const(nodes)) {
        setSplineAdded(editor, node, newAddFunc);
    }
    editor->refreshEditor();
    editor->emitSignalCurvesHaveChanged(nodes);
    return true;
}

void CommandAddFunc::undo()
{
    for (qsizetype i = 0; i < nodes.size(); ++i) {
        setSplineAdded(editor, nodes[i], oldAddFunc[i]);
    }
    editor->refreshEditor();
    editor->emitSignalCurvesHaveChanged(nodes);
}

void CommandAddFunc::redo()
{
    execute();
}

ZK_String CommandAddFunc::getDescription()
{
    return "Add Spline to Expression";
}

} // namespace curve_editor
