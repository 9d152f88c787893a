#include "graphs/ExpressionCurveGraph.h"

#include "graphs/CurvePen.h"

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
    stroke.drop();
    pixelsAreOld = true;
}

void ExpressionCurveGraph::setColors(const QColor& color, const QColor& midColor)
{
    pen = QPen(QBrush(color), 1.0); // as thick as a spline, at each ratio of the screen
    midColorPen = pen;
    midColorPen.setColor(midColor);
}

void ExpressionCurveGraph::draw(QPainter* painter) const
{
    if (stroke.isEmpty()) {
        painter->setPen(pen);
        painter->drawPolyline(polyline);
        return;
    }
    CurvePen strokePen(painter);
    strokePen.setColor(pen.color(), CurvePen::solid);
    strokePen.drawStroke(stroke);
}
