#pragma once

struct PointInfo;

/// What became of a wish for a key on a curve.
struct InsertedKey
{
    const PointInfo* key = nullptr; ///< owned by the spline; null when nothing was added
    bool isNew = false;             ///< false for a key that stood at the time already
    /// Whether the curve is what it was, but for roundings (1e-9 of a segment's range).
    bool keepsShape = false;
    /// How far values have moved at most where the shape is not kept; NaN where numbers have left
    /// their range.
    double error = 0.0;
};
