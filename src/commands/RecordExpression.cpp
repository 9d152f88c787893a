#include "commands/RecordExpression.h"

#include "commands/CommandContext.h"
#include "commands/RecordKeys.h"
#include "core/ExpressionDisposal.h"
#include "core/FunctionFloatBase.h"
#include "core/ParseMessage.h"
#include "core/SplineBase.h"
#include "curves/Catalogue.h"
#include "curves/CurveNodeBase.h"
#include "curves/ExpressionProblems.h"
#include "curves/NodeStruct.h"

#include <utility>

namespace curve_editor {

CurveNode* findExpressionCurve(const CommandContext& context, const NodeStruct* record)
{
    CurveNode* const curve = findCurveOf(context, record);
    return curve && curve->expressionSlot() == record->livingSlot() ? curve : nullptr;
}

std::optional<QString> expressionTextOf(const NodeStruct* record)
{
    return expressionTextOf(record->livingExpression());
}

Problems giveExpression(const CommandContext& context, const NodeStruct* record,
                        std::unique_ptr<FunctionFloatBase> expression, ParseMessage& message)
{
    CurveNode* const shown = findExpressionCurve(context, record);
    if (auto* const curve = dynamic_cast<CurveNodeBase*>(shown)) {
        return curve->takeExpression(std::move(expression), message);
    }
    emptySlot(record);
    if (FunctionFloatBase** const slot = record->livingSlot()) {
        *slot = expression.release();
    }
    return {};
}

bool restoreExpression(CommandContext& context, const NodeStruct* record, const QString& text)
{
    ParseMessage message;
    std::unique_ptr<FunctionFloatBase> expression =
        parseText(text, message, &context.catalogue().parserScope());
    return context.tell(syntaxProblems(message)) &&
           context.tell(giveExpression(context, record, std::move(expression), message));
}

void emptySlot(const NodeStruct* record)
{
    if (FunctionFloatBase** const slot = record->livingSlot()) {
        ExpressionDisposal::take(std::exchange(*slot, nullptr));
    }
}

bool isSplineAdded(const NodeStruct* record)
{
    const SplineBase* const spline = record->livingSpline();
    return spline && spline->isAddFunc();
}

void setSplineAdded(const CommandContext& context, const NodeStruct* record, const bool& add)
{
    if (CurveNode* const curve = findExpressionCurve(context, record)) {
        curve->setAddFunc(add);
    } else if (SplineBase* const spline = record->livingSpline()) {
        spline->setAddFunc(add);
    }
}

} // namespace curve_editor
