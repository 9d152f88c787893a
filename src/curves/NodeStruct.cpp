#include "curves/NodeStruct.h"

#include "core/SplineBase.h"

namespace curve_editor {

void NodeStruct::setSpline(SplineBase* hostSpline)
{
    spline = hostSpline;
    notedSpline = hostSpline;
    splineLife = hostSpline ? hostSpline->watchLife() : std::weak_ptr<const void>();
}

SplineBase* NodeStruct::livingSpline() const
{
    noteSpline();
    return splineLife.expired() ? nullptr : spline;
}

bool NodeStruct::isSplineLost() const
{
    noteSpline();
    return spline && splineLife.expired();
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
        splineLife = spline ? spline->watchLife() : std::weak_ptr<const void>();
    }
}

QString parserForm(const QString& dotName)
{
    return dotName.toLower().replace(QLatin1Char(' '), QLatin1Char('_'));
}

} // namespace curve_editor
