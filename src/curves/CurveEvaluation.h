#pragma once

class FunctionFloatBase;
class SplineBase;

/// What a curve consists of while it is evaluated. Any pointer may be null.
struct CurveContent
{
    SplineBase* spline = nullptr;
    FunctionFloatBase* expression = nullptr;
    float minimum = 0.0f;
    float maximum = 0.0f;
};

/// 2 when the spline's add func flag is set, else 1 with an expression, else 0.
int typeOfCurve(const SplineBase* spline, const FunctionFloatBase* expression);

/// Holds a value between two limits; NaN passes unchanged.
double clampToLimits(const double& value, const float& minimum, const float& maximum);
