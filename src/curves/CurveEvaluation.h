#pragma once

#include "files/CurveType.h" // typeOfCurve

/// Holds a value between two limits; NaN passes unchanged.
double clampToLimits(const double& value, const float& minimum, const float& maximum);
