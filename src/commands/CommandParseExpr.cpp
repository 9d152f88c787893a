#include "commands/CommandParseExpr.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/RecordExpression.h"
#include "core/FunctionFloatBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveNode.h"
#include "editor/CurveEditor.h"
#include "widgets/CommandLine.h"

#include <QPointer>

#include <memory>
#include <utility>

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
            curves.append({record, expressionTextOf(record), std::nullopt});
        }
    }
}

bool CommandParseExpr::execute()
{
    const QPointer<CurveEditor> living(editor); // a box lets the host delete it
    bool applied = false;
    ParseMessage message;
    QStringList names;
    for (Curve& curve : curves) {
        std::unique_ptr<FunctionFloatBase> expression(
            functionEditor->canvas().parseExpression(text, message));
        if (!living) {
            return false;
        }
        // Decided here: what the message says later of a cycle is told, not refused.
        applied = expression && message.errorKind == ParseMessage::noError;
        if (applied) {
            names.append(editor->dotName(curve.node));
            takeUpMark(curve);
            giveExpression(editor, curve.node, expression.release(), message);
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
    QList<NodeStruct*> nodes;
    for (const Curve& curve : std::as_const(curves)) {
        nodes.append(curve.node);
        if (curve.oldText) {
            if (!restoreExpression(editor, curve.node, *curve.oldText)) {
                return;
            }
        } else if (CurveNode* const shown = findExpressionCurve(editor, curve.node)) {
            shown->removeExpression(true);
        } else {
            emptySlot(curve.node);
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

/// Undoing a first expression clears the mark of a sum that had none: the redo finds it again.
void CommandParseExpr::takeUpMark(Curve& curve)
{
    if (!curve.firstAddFunc) {
        curve.firstAddFunc = isSplineAdded(curve.node);
    } else if (!curve.oldText) {
        setSplineAdded(editor, curve.node, *curve.firstAddFunc);
    }
}

} // namespace curve_editor
