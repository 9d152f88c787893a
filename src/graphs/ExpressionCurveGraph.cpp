#include "graphs/ExpressionCurveGraph.h"

#include <QPainter>

ExpressionCurveGraph::ExpressionCurveGraph()
    : pen(QBrush(Qt::red), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin)
    , midColorPen(pen)
{}

void ExpressionCurveGraph::setPolyline(const QPolygon& points)
{
    polyline = points;
    const QRect box = points.boundingRect().adjusted(-1, -1, 1, 1);
    bounds = QPolygon({box.topLeft(), box.topRight(), box.bottomRight(), box.bottomLeft()});
    pixelsAreOld = false;
}

void ExpressionCurveGraph::dropPixels()
{
    polyline = QPolygon();
    bounds = QPolygon();
    pixelsAreOld = true;
}

void ExpressionCurveGraph::setColors(const QColor& color, const QColor& midColor)
{
    // Made from the colour alone, a pen is a hairline.
    pen = QPen(QBrush(color), 0.0);
    midColorPen = pen;
    midColorPen.setColor(midColor);
}

void ExpressionCurveGraph::draw(QPainter* painter) const
{
    painter->setPen(pen);
    painter->drawPolyline(polyline);
}
