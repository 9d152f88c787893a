#include "curves/NodeStruct.h"

#include "core/SplineBase.h"

namespace curve_editor {

void NodeStruct::setSpline(SplineBase* hostSpline)
{
    spline = hostSpline;
    splineHandle = SplineHandle(hostSpline);
}

SplineBase* NodeStruct::livingSpline() const
{
    return splineHandle.get();
}

bool NodeStruct::isSplineLost() const
{
    return spline && !splineHandle.get();
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

QString parserForm(const QString& dotName)
{
    return dotName.toLower().replace(QLatin1Char(' '), QLatin1Char('_'));
}

} // namespace curve_editor
