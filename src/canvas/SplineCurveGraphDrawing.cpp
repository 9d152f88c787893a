#include "canvas/CanvasColors.h"
#include "canvas/ChosenKeys.h"
#include "canvas/CurvePen.h"
#include "canvas/SplineCurveGraph.h"
#include "canvas/ViewPort.h"
#include "widgets/CustomEditLine.h"

#include <QPainter>

#include <algorithm>

namespace {

/// Far outside counts as just outside.
double heldToCanvas(const double& place, const int& length)
{
    constexpr double margin = 4.0;
    return std::clamp(place, -margin, length + margin);
}

} // namespace

void SplineCurveGraph::drawCurve(QPainter* painter)
{
    const SplineBase* spline = keySelection.spline();
    if (!spline || !view || keyPixels.isEmpty()) {
        return;
    }
    CurvePen pen(painter);
    const bool isTraced = !course.limited.isEmpty();
    QPointF first = isTraced ? course.limited.first() : keyPixels.first();
    const QPointF last = isTraced ? course.limited.last() : keyPixels.last();
    const SplineBase::nodeType before = spline->firstNodeType();
    if (before == SplineBase::zero) {
        first.setY(heldToCanvas(course.row(0.0), view->viewHeight));
    }

    pen.setColor(main, CurvePen::dotted);
    if (first.x() > 0.0 && (before == SplineBase::zero || before == SplineBase::constant)) {
        first.setX(heldToCanvas(first.x(), view->viewWidth));
        pen.drawLine(first, QPointF(0.0, first.y()));
    }
    if (last.x() < view->viewWidth) {
        pen.drawStroke(course.tail);
    }
    pen.setColor(dim, CurvePen::dotted);
    pen.drawStroke(course.raw);
    pen.setColor(main, CurvePen::solid);
    pen.drawStroke(course.limited);
}

void SplineCurveGraph::drawKeys(QPainter* painter)
{
    drawSquares(painter, CanvasColors::shared().controlPoint, false);
}

void SplineCurveGraph::drawSelectedKeys(QPainter* painter)
{
    drawSquares(painter, CanvasColors::shared().controlPointSelected, true);
}

/// A filled square, 5 by 5 pixels with its outline, at each key that is chosen or is not. What
/// leaves no pixel on the canvas is not painted.
void SplineCurveGraph::drawSquares(QPainter* painter, const QColor& color, const bool& chosen)
{
    const std::vector<PointInfo*>& keys = keysWithPixels();
    const ChosenKeys chosenKeys(keySelection);
    const qsizetype count = std::min(keyPixels.size(), static_cast<qsizetype>(keys.size()));
    QList<QRect> squares;
    for (qsizetype i = 0; i < count; ++i) {
        const QPoint pixel = keyPixels.at(i);
        const bool touches = pixel.x() + 3 > 0 && pixel.x() - 3 < view->viewWidth &&
                             pixel.y() + 3 > 0 && pixel.y() - 3 < view->viewHeight;
        if (touches && chosenKeys.contains(keys[static_cast<std::size_t>(i)]) == chosen) {
            squares << QRect(pixel.x() - 2, pixel.y() - 2, 4, 4);
        }
    }
    if (squares.isEmpty()) {
        return;
    }
    painter->setPen(QPen(QBrush(color), 0.0, Qt::SolidLine));
    painter->setBrush(color);
    painter->drawRects(squares);
}

void SplineCurveGraph::drawLabels(QPainter* painter, const double& fps, const bool& showFrames,
                                  const int& decimals)
{
    const std::vector<PointInfo*>& keys = keysWithPixels();
    const ChosenKeys chosenKeys(keySelection);
    if (chosenKeys.isEmpty()) {
        return;
    }
    const QPainter::RenderHints hints = painter->renderHints();
    const QBrush background = painter->background();
    painter->setPen(QPen(QBrush(Qt::white), 0.0, Qt::SolidLine));
    painter->setBrush(Qt::white);
    painter->setBackground(Qt::NoBrush);
    painter->setRenderHint(QPainter::Antialiasing, false);

    const QRect canvas(0, 0, view->viewWidth, view->viewHeight);
    const int digits = std::min(decimals, CustomEditLine::mostDecimals);
    const qsizetype count = std::min(keyPixels.size(), static_cast<qsizetype>(keys.size()));
    for (qsizetype i = 0; i < count; ++i) {
        const PointInfo* key = keys[static_cast<std::size_t>(i)];
        if (!chosenKeys.contains(key)) {
            continue;
        }
        const double time = showFrames ? key->time * fps : key->time;
        const QString text = QStringLiteral(" %1, %2").arg(
            QStringLiteral("%1").arg(time, 0, 'f', digits, QLatin1Char(' ')),
            QStringLiteral("%1").arg(key->value, 0, 'f', digits, QLatin1Char(' ')));
        const QRect box = painter->fontMetrics().boundingRect(text).adjusted(-2, -2, 2, 2);
        if (box.translated(keyPixels.at(i)).intersects(canvas)) {
            painter->drawText(keyPixels.at(i), text);
        }
    }
    painter->setRenderHints(painter->renderHints(), false);
    painter->setRenderHints(hints, true);
    painter->setBackground(background);
}
