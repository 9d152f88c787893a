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
        curves.append({record, text, text && isSplineAdded(record)});
    }
}

bool CommandDelExpr::execute()
{
    QStringList names;
    for (const Curve& curve : std::as_const(curves)) {
        if (!curve.node->livingSlot()) {
            continue;
        }
        emptySlot(curve.node);
        names.append(editor->dotName(curve.node));
        if (CurveNode* const shown = findExpressionCurve(editor, curve.node)) {
            shown->removeExpression(true);
        } else {
            // To a sum left without its expression no undo could lead back: undoing the next
            // expression there clears the mark.
            setSplineAdded(editor, curve.node, false);
        }
    }
    editor->refreshEditor();
    editor->refreshCommandLine();
    editor->emitSignalCurvesHaveChanged(names);
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
    execute();
}

ZK_String CommandDelExpr::getDescription()
{
    return "Delete Expression";
}

} // namespace curve_editor
