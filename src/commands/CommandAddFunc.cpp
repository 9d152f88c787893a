#include "commands/CommandAddFunc.h"

#include "commands/CommandContext.h"
#include "commands/RecordExpression.h"
#include "commands/RecordKeys.h"
#include "curves/CurveNode.h"
#include "curves/EditingSet.h"
#include "files/CurveType.h"

#include <utility>

namespace curve_editor {

CommandAddFunc::CommandAddFunc(CurveEditor* editor)
    : CommandAddFunc(contextOf(editor))
{}

CommandAddFunc::CommandAddFunc(CommandContext& given)
    : context(&given)
    , newAddFunc(given.editingSet().type() == expressionCurve)
{
    for (CurveNode* const curve : given.editingSet()) {
        const int type = curve->curveType();
        NodeStruct* const record = recordOf(given, *curve);
        const bool hasExpression = type == expressionCurve || type == splinePlusExpressionCurve;
        if (hasExpression && showsRecord(curve, record)) {
            curves.append({record, type == splinePlusExpressionCurve});
        }
    }
}

bool CommandAddFunc::execute()
{
    for (const Curve& curve : std::as_const(curves)) {
        setSplineAdded(*context, curve.node, newAddFunc);
    }
    report();
    return true;
}

void CommandAddFunc::undo()
{
    for (const Curve& curve : std::as_const(curves)) {
        setSplineAdded(*context, curve.node, curve.oldAddFunc);
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
    context->refresh();
    context->report(nodes);
}

} // namespace curve_editor
