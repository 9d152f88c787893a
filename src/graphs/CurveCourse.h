#pragma once

#include "graphs/StrokeLine.h"

class ViewPort;

/// The course of a curve as it is painted: unrounded, through each key in view, with vertical
/// edges where the value jumps.
class CurveCourse
{
public:
    StrokeLine limited; ///< between first and last key, held to the limits
    StrokeLine raw;     ///< not held to them: only the pieces that part from `limited`
    StrokeLine tail;    ///< behind the last key, up to the right edge

    /// Forgets all points.
    void clear(const ViewPort& view);
    /// Gives the memory back.
    void drop();

    /// A point between first and last key; times ascend.
    void add(const double& time, const double& limitedValue, const double& rawValue);
    void addTail(const double& time, const double& value);

    double column(const double& time) const { return (time - minX) * scaleX; }
    double row(const double& value) const { return (maxY - value) * scaleY; }

private:
    double minX = 0.0;
    double maxY = 0.0;
    double scaleX = 0.0; ///< logical pixels a second
    double scaleY = 0.0;
    bool isApart = false; ///< a piece of `raw` is open
    QPointF former;       ///< the point before it, where both are one
};
