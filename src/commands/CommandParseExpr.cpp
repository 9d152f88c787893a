#include "commands/CommandParseExpr.h"

#include "canvas/FunctionEditor.h"
#include "commands/RecordExpression.h"
#include "core/FunctionFloatBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveNode.h"
#include "editor/CurveEditor.h"
#include "widgets/CommandLine.h"

#include <QPointer>

#include <memory>

namespace curve_editor {

CommandParseExpr::CommandParseExpr(CurveEditor* curveEditor, FunctionEditor* canvasWidget,
                                   CommandLine* expressionLine, const QList<NodeStruct*>& records)
    : editor(curveEditor)
    , functionEditor(canvasWidget)
    , commandLine(expressionLine)
    , text(expressionLine->text())
{
    for (NodeStruct* const record : records) {
        if (record) {
            nodes.append(record);
            oldTexts.append(expressionTextOf(record));
        }
    }
}

bool CommandParseExpr::execute()
{
    const QPointer<CurveEditor> living(editor); // a box lets the host delete it
    bool applied = false;
    ParseMessage message;
    QStringList names;
    for (const NodeStruct* const node : std::as_const(nodes)) {
        std::unique_ptr<FunctionFloatBase> expression(
            functionEditor->canvas().parseExpression(text, message));
        if (!living) {
            return false;
        }
        // Decided here: what the message says later of a cycle is told, not refused.
        applied = expression && message.errorKind == 0;
        if (applied) {
            names.append(editor->dotName(node));
            giveExpression(editor, node, expression.release(), message);
        }
        if (!living) {
            return applied;
        }
    }
    commandLine->setParseMessage(message);
    editor->emitSignalCurvesHaveChanged(names);
    return applied;
}

void CommandParseExpr::undo()
{
    for (qsizetype i = 0; i < nodes.size(); ++i) {
        if (oldTexts[i]) {
            if (!restoreExpression(editor, nodes[i], *oldTexts[i])) {
                return;
            }
        } else if (CurveNode* const curve = findExpressionCurve(editor, nodes[i])) {
            curve->removeExpression(true);
        } else {
            emptySlot(nodes[i]);
        }
    }
    editor->emitSignalCurvesHaveChanged(nodes);
    editor->refreshEditor();
    editor->refreshCommandLine();
}

void CommandParseExpr::redo()
{
    execute();
}

ZK_String CommandParseExpr::getDescription()
{
    return "Set Expression";
}

} // namespace curve_editor
