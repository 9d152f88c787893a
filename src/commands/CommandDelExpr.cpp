#include "commands/CommandDelExpr.h"

#include "commands/RecordExpression.h"
#include "core/Trace.h"
#include "curves/CurveNode.h"
#include "editor/CurveEditor.h"

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
        nodes.append(record);
        oldTexts.append(expressionTextOf(record));
        const bool hasExpression = oldTexts.last().has_value();
        if (hasExpression) {
            trace("DELEXPR NOTNULL <%s><%s>", record->mainNodeName, record->curveName);
        }
        oldAddFunc.append(hasExpression && isSplineAdded(record));
    }
}

bool CommandDelExpr::execute()
{
    QStringList names;
    for (const NodeStruct* const node : std::as_const(nodes)) {
        if (!node->livingSlot()) {
            continue;
        }
        emptySlot(node);
        names.append(editor->dotName(node));
        if (CurveNode* const curve = findExpressionCurve(editor, node)) {
            curve->removeExpression(true);
        } else {
            setSplineAdded(editor, node, false);
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
    for (qsizetype i = 0; i < nodes.size(); ++i) {
        if (!oldTexts[i]) {
            continue;
        }
        names.append(editor->dotName(nodes[i]));
        if (!restoreExpression(editor, nodes[i], *oldTexts[i])) {
            return;
        }
        setSplineAdded(editor, nodes[i], oldAddFunc[i]);
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
