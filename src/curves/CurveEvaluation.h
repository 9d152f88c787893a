#pragma once

class FunctionFloatBase;
class SplineBase;

/// The type of a curve made of these, see curves/CurveType.h. Either may be null. The spline's
/// add func flag wins over everything: with it set the curve is spline plus expression even
/// without an expression.
int typeOfCurve(const SplineBase* spline, const FunctionFloatBase* expression);

/// Holds a value between two limits; NaN passes unchanged.
double clampToLimits(const double& value, const float& minimum, const float& maximum);
