#pragma once

/// What a curve is made of. Computed whenever it is asked for, never stored.
enum curveTypes : int
{
    splineCurve = 0,
    expressionCurve = 1,
    splinePlusExpressionCurve = 2,
    mixedCurves = 3 ///< groups and editing sets only
};

/// Whether curves of this type have keys to edit.
inline bool hasKeys(const int& type)
{
    return type == splineCurve || type == splinePlusExpressionCurve;
}
