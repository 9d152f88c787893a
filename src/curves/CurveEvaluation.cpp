#include "curves/CurveEvaluation.h"

double clampToLimits(const double& value, const float& minimum, const float& maximum)
{
    const double lowest = static_cast<double>(minimum);
    const double highest = static_cast<double>(maximum);
    if (value < lowest) {
        return lowest;
    }
    return value > highest ? highest : value;
}
