#pragma once

#include "zk_curve_files_export.h"

class FunctionFloatBase;
class SplineBase;

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

/// The type of a curve made of these. Either may be null. The spline's add func flag wins over
/// everything: with it set the curve is spline plus expression even without an expression.
ZK_CURVE_FILES_EXPORT int typeOfCurve(const SplineBase* spline,
                                      const FunctionFloatBase* expression);
