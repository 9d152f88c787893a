#pragma once

#include "core/PointInfo.h"

/// A segment between two keys, cut in two at a time: what its keys and a new one between them must
/// be for the curve to stay as it is.
class SegmentSplit
{
public:
    struct Segment
    {
        PointInfo left;
        PointInfo right;
        bool isCurved; ///< else a straight line
        double out;    ///< the slope at its start, in value per second
        double in;     ///< and at its end
    };

    /// The time lies between those of the keys; `value` is that of the curve there.
    SegmentSplit(const Segment& segment, double time, double value);

    PointInfo key;          ///< the new one
    double leftOut;         ///< the slope that the first key must send the curve on with
    double rightIn;         ///< the slope that the second key must take it in with
    double leftEaseFrom;    ///< the ease of the first key on its way out
    double rightEaseTo;     ///< the ease of the second key on its way in
    bool keepsShape = true; ///< but for roundings
    double error = 0.0;     ///< how far values move at most; NaN when it cannot be told

private:
    struct Piece;

    void splitEvenly(const Segment& segment);
    void splitEased(const Segment& segment);
    void fitPiece(const Segment& segment, Piece& piece);
};
