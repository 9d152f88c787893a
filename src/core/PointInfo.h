#pragma once

#include "core/InterpolationType.h"

/// One key of a spline: a plain record, copied whole.
struct PointInfo
{
    /// Slopes of a Bezier key, in value per second.
    struct BezierData
    {
        double tangentLeft = 0.0;  ///< incoming slope
        double tangentRight = 0.0; ///< outgoing slope
    };

    /// Kochanek-Bartels parameters of a TCB key, and the easing of any key.
    struct TcbData
    {
        double tension = 0.0;
        double continuity = 0.0;
        double bias = 0.0;
        double easeTo = 0.0;   ///< 0 to 1: easing on the way into the key
        double easeFrom = 0.0; ///< 0 to 1: easing on the way out of the key
    };

    double time = 0.0;  ///< seconds
    double value = 0.0; ///< the curve's unit
    BezierData bezier;
    TcbData tcb;
    zk_spline::interpolationType type = zk_spline::tcb;
    bool unifiedTangents = false; ///< left and right tangent are one; continuity is then 0
};
