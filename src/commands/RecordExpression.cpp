#include "commands/RecordExpression.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/EligibleCurves.h"
#include "core/ExpressionDisposal.h"
#include "core/FunctionFloatBase.h"
#include "core/ParseMessage.h"
#include "core/SplineBase.h"
#include "curves/CurveNode.h"
#include "curves/NodeStruct.h"
#include "editor/CurveEditor.h"

#include <QPointer>

#include <utility>

namespace curve_editor {

CurveNode* findExpressionCurve(CurveEditor* editor, const NodeStruct* record)
{
    CurveNode* const curve = findCurveOf(editor, record);
    return curve && curve->expressionSlot() == record->livingSlot() ? curve : nullptr;
}

std::optional<QString> expressionTextOf(const NodeStruct* record)
{
    return expressionTextOf(record->livingExpression());
}

std::optional<QString> expressionTextOf(const FunctionFloatBase* expression)
{
    if (!expression) {
        return std::nullopt;
    }
    return QString::fromLocal8Bit(expression->getString().c_str());
}

void giveExpression(CurveEditor* editor, const NodeStruct* record, FunctionFloatBase* expression,
                    ParseMessage& message)
{
    if (CurveNode* const curve = findExpressionCurve(editor, record)) {
        const QPointer<CurveEditor> living(editor);
        curve->setExpression(expression, message);
        // It may have shown a box, and the curve may have gone while that was open.
        if (CurveNode* const present = living ? findExpressionCurve(editor, record) : nullptr) {
            present->markChanged();
        }
        return;
    }
    if (FunctionFloatBase** const slot = record->livingSlot()) {
        ExpressionDisposal::take(std::exchange(*slot, expression));
    } else {
        delete expression;
    }
}

bool restoreExpression(CurveEditor* editor, const NodeStruct* record, const QString& text)
{
    const QPointer<CurveEditor> living(editor);
    ParseMessage message;
    FunctionFloatBase* const expression =
        editor->getFunctionEditor()->canvas().parseExpression(text, message);
    if (!living) {
        delete expression;
        return false;
    }
    giveExpression(editor, record, expression, message);
    return living;
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

void setSplineAdded(CurveEditor* editor, const NodeStruct* record, const bool& add)
{
    if (CurveNode* const curve = findExpressionCurve(editor, record)) {
        curve->setAddFunc(add);
    } else if (SplineBase* const spline = record->livingSpline()) {
        spline->setAddFunc(add);
    }
}

} // namespace curve_editor
