#include "files/CurveType.h"

#include "core/SplineBase.h"

int typeOfCurve(const SplineBase* spline, const FunctionFloatBase* expression)
{
    if (spline && spline->isAddFunc()) {
        return splinePlusExpressionCurve;
    }
    return expression ? expressionCurve : splineCurve;
}
