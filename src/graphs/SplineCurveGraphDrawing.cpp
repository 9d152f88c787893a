// Drawing of curve, keys, tangents and labels.

#include "core/Decimals.h"
#include "core/Truncate.h"
#include "graphs/CanvasColors.h"
#include "graphs/ChosenKeys.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"

#include <QPainter>

#include <algorithm>

void SplineCurveGraph::drawCurve(QPainter* painter)
{
    const SplineBase* spline = keySelection.spline();
    if (!spline || !view || keyPixels.isEmpty()) {
        return;
    }
    QPoint first = curvePixels.isEmpty() ? keyPixels.first() : curvePixels.first();
    QPoint last = curvePixels.isEmpty() ? keyPixels.last() : curvePixels.last();
    const SplineBase::nodeType before = spline->firstNodeType();
    if (before == SplineBase::zero) {
        const double scaleY = view->viewHeight / (view->maxY - view->minY);
        first.setY(truncateToPixel(scaleY * (view->maxY - 0.0)));
    }

    painter->setPen(QPen(QBrush(main), 1.0, Qt::DotLine));
    if (first.x() > 0 && (before == SplineBase::zero || before == SplineBase::constant)) {
        painter->drawLine(first, QPoint(0, first.y()));
    }
    if (last.x() < view->viewWidth && !tailPixels.isEmpty()) {
        painter->drawPolyline(tailPixels);
    }
    if (!rawPixels.isEmpty()) {
        painter->setPen(QPen(QBrush(dim), 1.0, Qt::DotLine));
        painter->drawPolyline(rawPixels);
    }
    painter->setPen(QPen(QBrush(main), 1.0, Qt::SolidLine));
    if (!curvePixels.isEmpty()) {
        painter->drawPolyline(curvePixels);
    }
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
    const int digits = std::min(decimals, curve_editor::mostDecimals);
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
