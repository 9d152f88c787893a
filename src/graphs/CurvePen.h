#pragma once

#include "graphs/LineRaster.h"

#include <QPolygonF>

#include <optional>
#include <vector>

class QPainter;
class StrokeLine;

/// Draws the lines and keys of curves on a painter: with the quick raster where the painter works
/// on a picture's own pixels, and through the painter wherever else it leads.
class CurvePen
{
public:
    /// The painter is not owned and not used by anybody else while this lives.
    explicit CurvePen(QPainter* painter);

    enum Style
    {
        solid,
        dotted ///< one logical pixel of three
    };
    /// Lines of one logical pixel.
    void setColor(const QColor& color, const Style& style);
    void drawLine(const QPointF& from, const QPointF& to);
    /// Where many points share a column of the device's pixels, only the lowest and the highest of
    /// them are drawn to: that moves the line within that column alone.
    void drawStroke(const StrokeLine& line);

    /// A square of 5 by 5 logical pixels, its outline included, around each of these points. Their
    /// columns ascend; of squares on the same pixel one is drawn.
    void drawSquares(const std::vector<QPointF>& middles, const QColor& color);
    /// A disc of that size.
    void drawDisc(const QPointF& middle, const QColor& color);
    /// A square of 2 by 2 logical pixels.
    void drawPoint(const QPointF& middle, const QColor& color);

private:
    QPoint onDevice(const QPointF& point) const;
    void drawPiece(const QPointF* points, const qsizetype& count);
    void reduce(const QPointF* points, const qsizetype& count);
    void endColumn();

    QPainter* painter;
    std::optional<LineRaster> raster;
    double ratio = 1.0; ///< the device's pixels a logical one
    QPointF origin;     ///< of the logical pixels, on the device
    QPolygonF& reduced; ///< in the device's pixels; kept for the memory alone
    QPointF column[4];  ///< the first points of the present column
    QPointF lowest;
    QPointF highest;
    int columnCount = 0; ///< points in it
};
