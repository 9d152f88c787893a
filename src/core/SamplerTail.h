#pragma once

#include "core/SplineBase.h"

/// What a spline does on one side of its keys.
struct SamplerTail
{
    /// Of a spline without keys: its default value for ever.
    SamplerTail(const SplineBase& spline, bool isBefore);

    /// Whether the keys come again here.
    bool isLoop() const { return behaviour == SplineBase::loop || isRaised(); }
    bool isRaised() const { return behaviour == SplineBase::loopOffset; }

    /// The value at a time of any other behaviour, and where no period can be told.
    double value(double time) const;
    /// The slope of that, in value per second.
    double slope() const;

    SplineBase::nodeType behaviour;
    double endTime = 0.0; ///< of the key that this side begins at
    double endValue = 0.0;
    double rise = 0.0; ///< of a period
    double endSlope = 0.0;
    double smallSlope = 0.0; ///< the same of values times spline_formulas::smallScale
};
