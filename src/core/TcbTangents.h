#pragma once

#include "core/PointInfo.h"
#include "core/SplineFormulas.h"

/// The tangents of a TCB key from its tension, continuity and bias, after Kochanek and Bartels,
/// "Interpolating Splines with Local Tension, Continuity, and Bias Control", SIGGRAPH 1984. A slope
/// is the sum of the rises to the neighbours, each times its factor, over their time.
namespace spline_formulas {

/// @name Factors of the slope with which a key sends the curve on: of the rise before it (0) and of
/// the one behind it (1)
/// @{
inline double tcbFactorL0(const PointInfo::TcbData& data)
{
    return (1.0 - data.tension) / 2.0 * (1.0 + data.continuity) * (1.0 + data.bias);
}

inline double tcbFactorL1(const PointInfo::TcbData& data)
{
    return (1.0 - data.tension) / 2.0 * (1.0 - data.continuity) * (1.0 - data.bias);
}
/// @}

/// @name The same of the slope with which it takes the curve in
/// @{
inline double tcbFactorR0(const PointInfo::TcbData& data)
{
    return (1.0 - data.tension) / 2.0 * (1.0 - data.continuity) * (1.0 + data.bias);
}

inline double tcbFactorR1(const PointInfo::TcbData& data)
{
    return (1.0 - data.tension) / 2.0 * (1.0 + data.continuity) * (1.0 - data.bias);
}
/// @}

/// The published weights hold for gaps of one length: over uneven ones the weighted rise is taken
/// over the mean of the two gaps.
inline double slopeOverGaps(double weightedRise, double gapBefore, double gapBehind)
{
    return slopeOf(2.0 * weightedRise, gapBefore + gapBehind);
}

} // namespace spline_formulas
