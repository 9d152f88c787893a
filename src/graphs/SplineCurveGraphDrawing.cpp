// Drawing of curve, keys, tangents and labels.

#include "core/Decimals.h"
#include "core/Truncate.h"
#include "graphs/CanvasColors.h"
#include "graphs/ChosenKeys.h"
#include "graphs/CurvePen.h"
#include "graphs/CurveTracing.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace {

/// Far outside counts as just outside.
double heldToCanvas(const double& place, const int& length)
{
    constexpr double margin = 4.0;
    return std::clamp(place, -margin, length + margin);
}

/// Where a text at a pixel begins so that it is seen whole; its beginning comes first.
QPoint insideCanvas(const QPoint& pixel, const QFontMetrics& metrics, const QString& text,
                    const ViewPort& view)
{
    const int left = view.viewWidth - metrics.horizontalAdvance(text);
    const int top = std::min(metrics.ascent(), view.viewHeight);
    const int bottom = std::max(view.viewHeight - metrics.descent(), top);
    return QPoint(std::max(std::min(pixel.x(), left), 0), std::clamp(pixel.y(), top, bottom));
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
    if (view && view->thinsKeys) {
        drawThinned(painter, CanvasColors::shared().controlPoint);
    } else {
        drawSquares(painter, CanvasColors::shared().controlPoint, false);
    }
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
    if (keys.empty() || (chosen && chosenKeys.isEmpty())) {
        return;
    }
    static thread_local std::vector<QPointF> middles;
    middles.clear();
    for (auto [i, end] = keysInView(keys); i < end; ++i) {
        const QPointF middle = placeOf(*keys[i]);
        const bool touches = middle.y() + 3.0 > 0.0 && middle.y() - 3.0 < view->viewHeight;
        if (touches && chosenKeys.contains(keys[i]) == chosen) {
            middles.push_back(middle);
        }
    }
    CurvePen(painter).drawSquares(middles, color);
}

/// How far the nearer neighbour lies, in logical pixels along the curve.
double SplineCurveGraph::roomOf(const std::vector<PointInfo*>& keys, const std::size_t& index) const
{
    double room = std::numeric_limits<double>::infinity();
    const QPointF here = placeOf(*keys[index]);
    for (const std::size_t& other : {index - 1, index + 1}) {
        if (other < keys.size()) { // before the first one the index has wrapped around
            const QPointF way = placeOf(*keys[other]) - here;
            room = std::min(room, std::hypot(way.x(), way.y()));
        }
    }
    return room;
}

/// Squares where they have room, points in the curve's own colour where they have not. Points fade
/// out where they would be a line of their own.
void SplineCurveGraph::drawThinned(QPainter* painter, const QColor& color)
{
    constexpr double roomOfSquare = 6.0;
    constexpr double roomOfPoint = 2.0;
    constexpr int shades = 8;
    const std::vector<PointInfo*>& keys = keysWithPixels();
    if (keys.empty()) {
        return;
    }
    const ChosenKeys chosenKeys(keySelection);
    std::vector<QPointF> squares;
    CurvePen pen(painter);
    for (auto [i, end] = keysInView(keys); i < end; ++i) {
        if (chosenKeys.contains(keys[i])) {
            continue;
        }
        const double room = roomOf(keys, i);
        const QPointF middle = placeOf(*keys[i]);
        if (room >= roomOfSquare) {
            squares.push_back(middle);
        } else if (const int shade = truncateToInt(std::min(room / roomOfPoint, 1.0) * shades)) {
            QColor faded = main;
            faded.setAlpha(main.alpha() * shade / shades);
            pen.drawPoint(middle, faded);
        }
    }
    pen.drawSquares(squares, color);
}

/// The indexes from the first to behind the last key whose marks may touch the canvas: found by a
/// search, for all but these leave no pixel.
std::pair<std::size_t, std::size_t>
SplineCurveGraph::keysInView(const std::vector<PointInfo*>& keys) const
{
    constexpr double reach = 3.0; // pixels; a mark's outline included
    const double first = view->timeAt(-reach);
    const double last = view->timeAt(view->viewWidth + reach);
    if (!(first < last)) {
        return {0, 0};
    }
    const std::size_t begin = curve_tracing::firstKeyFrom(keys, first);
    return {begin, std::max(begin, curve_tracing::firstKeyFrom(keys, last))};
}

/// Where the key lies, in logical pixels; without being cut to whole ones, unlike in keyPixels.
QPointF SplineCurveGraph::placeOf(const PointInfo& key) const
{
    const double scaleX = view->viewWidth / (view->maxX - view->minX);
    const double scaleY = view->viewHeight / (view->maxY - view->minY);
    return QPointF((key.time - view->minX) * scaleX, (view->maxY - key.value) * scaleY);
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
    const QColor color = CanvasColors::shared().overlay;
    painter->setPen(QPen(QBrush(color), 0.0, Qt::SolidLine));
    painter->setBrush(color);
    painter->setBackground(Qt::NoBrush);
    painter->setRenderHint(QPainter::Antialiasing, false);
    const Qt::LayoutDirection direction = painter->layoutDirection();
    painter->setLayoutDirection(Qt::LeftToRight); // or the sign would stand behind its number

    const int digits = std::min(decimals, curve_editor::mostDecimals);
    const QFontMetrics metrics = painter->fontMetrics();
    std::optional<QPoint> former;
    for (auto [i, end] = keysInView(keys); i < end; ++i) {
        const PointInfo* const key = keys[i];
        const QPoint pixel = keyPixels.at(static_cast<qsizetype>(i));
        if (pixel.y() < 0 || pixel.y() > view->viewHeight || pixel == former ||
            !chosenKeys.contains(key)) {
            continue;
        }
        former = pixel;
        const double time = showFrames ? key->time * fps : key->time;
        const QString text = QStringLiteral(" %1, %2").arg(
            QStringLiteral("%1").arg(time, 0, 'f', digits, QLatin1Char(' ')),
            QStringLiteral("%1").arg(key->value, 0, 'f', digits, QLatin1Char(' ')));
        painter->drawText(insideCanvas(pixel, metrics, text, *view), text);
    }
    painter->setLayoutDirection(direction);
    painter->setRenderHints(painter->renderHints(), false);
    painter->setRenderHints(hints, true);
    painter->setBackground(background);
}
