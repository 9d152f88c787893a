#include "commands/CommandDelExpr.h"

#include "commands/CommandContext.h"
#include "commands/RecordExpression.h"
#include "commands/RecordKeys.h"
#include "core/Trace.h"
#include "curves/CurveNode.h"

#include <utility>

namespace curve_editor {

CommandDelExpr::CommandDelExpr(CurveEditor* editor, FunctionEditor* /*functionEditor*/,
                               CommandLine* /*commandLine*/, const QList<NodeStruct*>& records)
    : CommandDelExpr(contextOf(editor), records)
{}

CommandDelExpr::CommandDelExpr(CommandContext& given, const QList<NodeStruct*>& records)
    : context(&given)
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
    static_cast<void>(putBack());
}

bool CommandDelExpr::putBack()
{
    QStringList names;
    for (const Curve& curve : std::as_const(curves)) {
        if (!curve.oldText) {
            continue;
        }
        names.append(dotNameOf(*curve.node));
        if (!restoreExpression(*context, curve.node, *curve.oldText)) {
            return false;
        }
        setSplineAdded(*context, curve.node, curve.oldAddFunc);
    }
    context->report(names);
    context->refresh();
    context->refreshExpressionLine();
    return true;
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
        names.append(dotNameOf(*curve.node));
        if (CurveNode* const shown = findExpressionCurve(*context, curve.node)) {
            shown->removeExpression(true);
        }
        if (again) {
            setSplineAdded(*context, curve.node, curve.newAddFunc);
        } else {
            curve.newAddFunc = isSplineAdded(curve.node);
        }
    }
    context->refresh();
    context->refreshExpressionLine();
    context->report(names);
}

} // namespace curve_editor
