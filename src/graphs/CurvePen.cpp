#include "graphs/CurvePen.h"

#include "core/Truncate.h"
#include "graphs/KeyStamp.h"
#include "graphs/StrokeLine.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace {

constexpr int dotsPeriod = 3;
constexpr int mostPointsOfColumn = 4;

QPolygonF& sharedBuffer()
{
    static thread_local QPolygonF points;
    return points;
}

/// The picture that the painter works on, if nothing but a whole number of its pixels lies between
/// its coordinates and the logical ones.
QImage* plainPicture(QPainter* painter)
{
    QPaintDevice* const device = painter->device();
    if (!device || device->devType() != QInternal::Image || painter->hasClipping() ||
        painter->opacity() != 1.0 || !painter->testRenderHint(QPainter::Antialiasing) ||
        painter->compositionMode() != QPainter::CompositionMode_SourceOver) {
        return nullptr;
    }
    auto* const picture = static_cast<QImage*>(device);
    const QTransform transform = painter->deviceTransform();
    const bool isPlain = transform.type() <= QTransform::TxScale &&
                         transform.m11() == picture->devicePixelRatio() &&
                         transform.m22() == picture->devicePixelRatio();
    return isPlain && picture->isDetached() && LineRaster::canDrawInto(*picture) ? picture
                                                                                 : nullptr;
}

} // namespace

CurvePen::CurvePen(QPainter* onto)
    : painter(onto)
    , reduced(sharedBuffer())
{
    const QTransform transform = painter->deviceTransform();
    ratio = std::hypot(transform.m11(), transform.m12());
    if (QImage* const picture = plainPicture(painter)) {
        raster.emplace(*picture);
        origin = QPointF(transform.dx(), transform.dy());
    }
}

void CurvePen::setColor(const QColor& color, const Style& style)
{
    if (!raster) {
        painter->setPen(QPen(QBrush(color), 1.0, style == dotted ? Qt::DotLine : Qt::SolidLine));
        return;
    }
    raster->setPen(color, std::max(ratio, 1.0));
    if (style == dotted) {
        const int on = std::max(1, qRound(ratio));
        raster->setDots(on, dotsPeriod * on);
    }
}

void CurvePen::drawLine(const QPointF& from, const QPointF& to)
{
    const QPointF points[] = {from, to};
    if (std::isfinite(from.x() + from.y() + to.x() + to.y())) {
        drawPiece(points, 2);
    }
}

void CurvePen::drawStroke(const StrokeLine& line)
{
    for (qsizetype i = 0; i < line.pieceCount(); ++i) {
        drawPiece(line.piece(i), line.pieceSize(i));
    }
}

void CurvePen::drawPiece(const QPointF* points, const qsizetype& count)
{
    reduce(points, count);
    if (raster) {
        raster->restartDots();
        raster->drawPolyline(reduced.constData(), reduced.size());
        return;
    }
    for (QPointF& point : reduced) {
        point /= ratio;
    }
    painter->drawPolyline(reduced);
}

void CurvePen::reduce(const QPointF* points, const qsizetype& count)
{
    reduced.clear();
    columnCount = 0;
    double present = 0.0;
    for (qsizetype i = 0; i < count; ++i) {
        const QPointF point = points[i] * ratio + origin;
        const double itsColumn = std::floor(point.x());
        if (columnCount > 0 && itsColumn != present) {
            endColumn();
        }
        present = itsColumn;
        if (columnCount < mostPointsOfColumn) {
            column[columnCount] = point;
        }
        if (columnCount == 0 || point.y() < lowest.y()) {
            lowest = point;
        }
        if (columnCount == 0 || point.y() > highest.y()) {
            highest = point;
        }
        ++columnCount;
    }
    endColumn();
}

/// Of many points the end that is nearer to the last column comes first: the way there is then no
/// second line through the same pixels.
void CurvePen::endColumn()
{
    if (columnCount <= mostPointsOfColumn) {
        std::copy(column, column + columnCount, std::back_inserter(reduced));
    } else {
        const double before = reduced.isEmpty() ? column[0].y() : reduced.last().y();
        const bool lowestIsNear = std::fabs(lowest.y() - before) <= std::fabs(highest.y() - before);
        reduced << (lowestIsNear ? lowest : highest) << (lowestIsNear ? highest : lowest);
    }
    columnCount = 0;
}

QPoint CurvePen::onDevice(const QPointF& point) const
{
    return QPoint(truncateToPixel(std::round(point.x() * ratio + origin.x())),
                  truncateToPixel(std::round(point.y() * ratio + origin.y())));
}

void CurvePen::drawSquares(const std::vector<QPointF>& middles, const QColor& color)
{
    if (!raster) {
        painter->setPen(QPen(QBrush(color), 0.0, Qt::SolidLine));
        painter->setBrush(color);
        for (const QPointF& middle : middles) {
            painter->drawRect(
                QRect(truncateToPixel(middle.x()) - 2, truncateToPixel(middle.y()) - 2, 4, 4));
        }
        return;
    }
    const QImage& stamp = KeyStamp::of(KeyStamp::square, color, ratio);
    // By row, the column of the square that was drawn there last.
    static thread_local std::vector<int> columns;
    const int reach = stamp.height();
    const int rows = painter->device()->height() + 2 * reach;
    columns.assign(static_cast<std::size_t>(rows), std::numeric_limits<int>::min());
    for (const QPointF& middle : middles) {
        const QPoint pixel = onDevice(middle);
        const int row = pixel.y() + reach;
        if (row < 0 || row >= rows || columns[static_cast<std::size_t>(row)] == pixel.x()) {
            continue;
        }
        columns[static_cast<std::size_t>(row)] = pixel.x();
        raster->drawStamp(stamp, pixel);
    }
}

void CurvePen::drawDisc(const QPointF& middle, const QColor& color)
{
    if (raster) {
        raster->drawStamp(KeyStamp::of(KeyStamp::disc, color, ratio), onDevice(middle));
        return;
    }
    painter->setPen(QPen(QBrush(color), 1.0, Qt::SolidLine));
    painter->setBrush(color);
    painter->drawEllipse(QRectF(middle.x() - 2.0, middle.y() - 2.0, 4.0, 4.0));
}

void CurvePen::drawPoint(const QPointF& middle, const QColor& color)
{
    if (raster) {
        raster->drawStamp(KeyStamp::of(KeyStamp::point, color, ratio), onDevice(middle));
    } else {
        painter->fillRect(QRectF(middle.x() - 1.0, middle.y() - 1.0, 2.0, 2.0), color);
    }
}
