#include "curves/NodeStruct.h"

#include "core/SplineBase.h"
#include "curves/DottedName.h"

namespace curve_editor {

NodeStruct NodeStruct::lent(const QString& node, const QString& curve, const QColor& color,
                            float curveValue, SplineBase* spline, FunctionFloatBase** function,
                            float minValue, float maxValue, bool notifyHost)
{
    const DottedName name(node, curve);
    NodeStruct record;
    record.setSpline(spline);
    record.function = function;
    record.color = color;
    record.curveValue = curveValue;
    record.minValue = minValue;
    record.maxValue = maxValue;
    record.mainNodeName = node;
    record.curveName = curve;
    record.dotName = name.text();
    record.safeDotName = name.safeText();
    record.notifyHost = notifyHost;
    return record;
}

void NodeStruct::setSpline(SplineBase* hostSpline)
{
    spline = hostSpline;
    notedSpline = hostSpline;
    splineHandle = SplineHandle(hostSpline);
}

SplineBase* NodeStruct::livingSpline() const
{
    noteSpline();
    return splineHandle.get();
}

bool NodeStruct::isSplineLost() const
{
    noteSpline();
    return splineHandle.isLost();
}

FunctionFloatBase** NodeStruct::livingSlot() const
{
    return isSplineLost() ? nullptr : function;
}

FunctionFloatBase* NodeStruct::livingExpression() const
{
    FunctionFloatBase** slot = livingSlot();
    return slot ? *slot : nullptr;
}

void NodeStruct::noteSpline() const
{
    if (spline != notedSpline) {
        notedSpline = spline;
        splineHandle = SplineHandle(spline);
    }
}

QString parserForm(const QString& dotName)
{
    return dotName.toLower().replace(QLatin1Char(' '), QLatin1Char('_'));
}

} // namespace curve_editor
