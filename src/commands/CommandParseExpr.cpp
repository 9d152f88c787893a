#include "commands/CommandParseExpr.h"

#include "commands/CommandContext.h"
#include "commands/RecordExpression.h"
#include "commands/RecordKeys.h"
#include "core/FunctionFloatBase.h"
#include "core/ParseMessage.h"
#include "curves/Catalogue.h"
#include "curves/CurveNode.h"
#include "curves/ExpressionProblems.h"

#include <memory>
#include <utility>

namespace curve_editor {

CommandParseExpr::CommandParseExpr(CurveEditor* editor, FunctionEditor* /*functionEditor*/,
                                   CommandLine* line, const QList<NodeStruct*>& records)
    : CommandParseExpr(contextOf(editor), line, records)
{}

CommandParseExpr::CommandParseExpr(CommandContext& given, CommandLine* line,
                                   const QList<NodeStruct*>& records)
    : context(&given)
    , commandLine(line)
    , text(given.textOf(line))
{
    for (NodeStruct* const record : records) {
        if (record) {
            curves.append({record, expressionTextOf(record), std::nullopt});
        }
    }
}

bool CommandParseExpr::execute()
{
    bool applied = false;
    ParseMessage message;
    QStringList names;
    const ParserScope* const scope = &context->catalogue().parserScope();
    for (Curve& curve : curves) {
        std::unique_ptr<FunctionFloatBase> expression = parseText(text, message, scope);
        if (!context->tell(syntaxProblems(message))) {
            return false;
        }
        // Decided here: what the message says later of a cycle is told, not refused.
        applied = expression && message.errorKind == ParseMessage::noError;
        if (applied) {
            names.append(dotNameOf(*curve.node));
            takeUpMark(curve);
            if (!context->tell(
                    giveExpression(*context, curve.node, std::move(expression), message))) {
                return true;
            }
        }
    }
    context->showParsed(commandLine, message);
    context->report(names);
    return applied;
}

void CommandParseExpr::undo()
{
    QList<NodeStruct*> nodes;
    for (const Curve& curve : std::as_const(curves)) {
        nodes.append(curve.node);
        if (curve.oldText) {
            if (!restoreExpression(*context, curve.node, *curve.oldText)) {
                return;
            }
        } else if (CurveNode* const shown = findExpressionCurve(*context, curve.node)) {
            shown->removeExpression(true);
        } else {
            emptySlot(curve.node);
        }
    }
    context->report(nodes);
    context->refresh();
    context->refreshExpressionLine();
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
        setSplineAdded(*context, curve.node, *curve.firstAddFunc);
    }
}

} // namespace curve_editor
