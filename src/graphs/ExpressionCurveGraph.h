#pragma once

#include "graphs/StrokeLine.h"

#include <QPen>
#include <QPolygon>

class QPainter;

/// The drawing record of a curve's expression.
class ExpressionCurveGraph
{
public:
    ExpressionCurveGraph();

    /// Keeps the polyline and works out the bounding polygon: the corners of the points'
    /// bounding box grown by 1 on every side.
    void setPolyline(const QPolygon& points);
    /// The line as it is painted: the same, unrounded. Without it the polyline is.
    StrokeLine stroke;
    /// Frees the polyline, which is then old.
    void dropPixels();
    void setColors(const QColor& color, const QColor& midColor);
    void draw(QPainter* painter) const;

    bool isActive = false;
    bool pixelsAreOld = true; ///< the polyline was not sampled since something changed
    QPen pen;
    QPen midColorPen;
    QPolygon bounds; ///< four points
    QPolygon polyline;
};
