#include "commands/CommandDelExpr.h"

#include "commands/RecordExpression.h"
#include "core/Trace.h"
#include "curves/CurveNode.h"
#include "editor/CurveEditor.h"

#include <utility>

namespace curve_editor {

CommandDelExpr::CommandDelExpr(CurveEditor* curveEditor, FunctionEditor* /*functionEditor*/,
                               CommandLine* /*commandLine*/, const QList<NodeStruct*>& records)
    : editor(curveEditor)
{
    for (NodeStruct* const record : records) {
        if (!record) {
            continue;
        }
        trace("DELEXPR of <%s><%s>", record->mainNodeName, record->curveName);
        const std::optional<QString> text = expressionTextOf(record);
        if (text) {
            trace("DELEXPR NOTNULL <%s><%s>", record->mainNodeName, record->curveName);
        }
        curves.append({record, text, text && isSplineAdded(record), false});
    }
}

bool CommandDelExpr::execute()
{
    deleteExpressions(false);
    return true;
}

void CommandDelExpr::undo()
{
    QStringList names;
    for (const Curve& curve : std::as_const(curves)) {
        if (!curve.oldText) {
            continue;
        }
        names.append(editor->dotName(curve.node));
        if (!restoreExpression(editor, curve.node, *curve.oldText)) {
            return;
        }
        setSplineAdded(editor, curve.node, curve.oldAddFunc);
    }
    editor->emitSignalCurvesHaveChanged(names);
    editor->refreshEditor();
    editor->refreshCommandLine();
}

void CommandDelExpr::redo()
{
    deleteExpressions(true);
}

ZK_String CommandDelExpr::getDescription()
{
    return "Delete Expression";
}

/// `again` leaves the marks as the first time left them, wherever the curves are by now.
void CommandDelExpr::deleteExpressions(const bool& again)
{
    QStringList names;
    for (Curve& curve : curves) {
        if (!curve.node->livingSlot()) {
            continue;
        }
        emptySlot(curve.node);
        names.append(editor->dotName(curve.node));
        if (CurveNode* const shown = findExpressionCurve(editor, curve.node)) {
            shown->removeExpression(true);
        }
        if (again) {
            setSplineAdded(editor, curve.node, curve.newAddFunc);
        } else {
            curve.newAddFunc = isSplineAdded(curve.node);
        }
    }
    editor->refreshEditor();
    editor->refreshCommandLine();
    editor->emitSignalCurvesHaveChanged(names);
}

} // namespace curve_editor
