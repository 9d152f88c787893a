#include "curves/CurveEvaluation.h"

#include "core/SplineBase.h"
#include "curves/CurveType.h"

int typeOfCurve(const SplineBase* spline, const FunctionFloatBase* expression)
{
    if (spline && spline->isAddFunc()) {
        return splinePlusExpressionCurve;
    }
    return expression ? expressionCurve : splineCurve;
}

double clampToLimits(const double& value, const float& minimum, const float& maximum)
{
    const double lowest = static_cast<double>(minimum);
    const double highest = static_cast<double>(maximum);
    if (value < lowest) {
        return lowest;
    }
    return value > highest ? highest : value;
}
