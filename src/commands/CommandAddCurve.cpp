#include "commands/CommandAddCurve.h"

#include "commands/CommandContext.h"
#include "core/SplineBase.h"
#include "curves/Catalogue.h"
#include "curves/CurveTree.h"

namespace curve_editor {

CommandAddCurve::CommandAddCurve(CurveEditor* editor, const QString& node, const QString& name,
                                 const QColor& color, float curveValue, SplineBase* spline,
                                 FunctionFloatBase** function, float minValue, float maxValue,
                                 const bool& select, const bool& notifyHost)
    : CommandAddCurve(contextOf(editor),
                      NodeStruct::lent(node, name, color, curveValue, spline, function, minValue,
                                       maxValue, notifyHost),
                      select)
{}

CommandAddCurve::CommandAddCurve(CommandContext& given, const NodeStruct& lent, const bool& select)
    : context(&given)
    , content(lent)
    , previousSelection(given.selection())
    , selectByDefault(select)
{}

bool CommandAddCurve::execute()
{
    const NodeStruct* const known = context->catalogue().find(content.dotName);
    isNewRecord = !known;
    if (known && known->isSplineLost()) {
        context->listCurve(content); // lends the new spline
    }
    curve = CurveHold(context->tree().findLeaf(content.dotName));
    if (curve.get()) {
        if (selectByDefault) {
            context->enterSelected(content.mainNodeName, content.curveName);
        }
        return false;
    }
    context->listCurve(content);
    if (wantsSelection()) {
        context->enterSelected(content.mainNodeName, content.curveName);
    }
    curve = CurveHold(context->tree().findLeaf(content.dotName));
    context->reportEditingCurves();
    return true;
}

void CommandAddCurve::undo()
{
    if (isNewRecord) {
        context->unlistCurve(content.mainNodeName, content.curveName);
    } else {
        context->leaveCanvas(content.dotName);
    }
    context->select(previousSelection);
    context->reportEditingCurves();
}

void CommandAddCurve::redo()
{
    context->listCurve(content);
    if (wantsSelection()) {
        context->enterSelected(content.mainNodeName, content.curveName, curve.get());
    }
    context->reportEditingCurves();
}

ZK_String CommandAddCurve::getDescription()
{
    return "Add Curve to Curve Editor";
}

/// A curve with neither a key nor an expression stays off the canvas.
bool CommandAddCurve::wantsSelection() const
{
    const SplineBase* const keys = content.livingSpline();
    const bool hasKeys = keys && keys->getControlPointsNumber() > 0;
    return selectByDefault && (hasKeys || content.livingExpression());
}

} // namespace curve_editor
