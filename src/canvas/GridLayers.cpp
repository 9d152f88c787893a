#include "canvas/GridLayers.h"

#include "canvas/FrameGrid.h"
#include "canvas/GridLabels.h"
#include "canvas/LayerPlace.h"
#include "core/ContentHash.h"

#include <QHash>
#include <QPainter>

namespace {

std::uint64_t contentOf(const FrameGrid& grid, const QSize& picture, const QPainter& painter)
{
    ContentHash hash;
    for (const QPoint& point : grid.lines) {
        hash.add(point.x());
        hash.add(point.y());
    }
    hash.add(grid.linePen.color().rgba());
    hash.add(grid.linePen.widthF());
    hash.add(static_cast<int>(grid.linePen.style()));
    for (const QColor& color : {grid.vLineColor, grid.hLineColor, grid.fontColor}) {
        hash.add(color.rgba());
    }
    for (const double& number : {grid.stepX, grid.stepY, grid.firstX, grid.firstY}) {
        hash.add(number);
    }
    for (const int& number : {grid.countX, grid.countY, grid.zeroIndexX, grid.zeroIndexY,
                              grid.gridWidth, grid.gridHeight, picture.width(), picture.height()}) {
        hash.add(number);
    }
    hash.add(qHash(grid.labelFont));
    hash.add(painter.device()->devicePixelRatioF());
    hash.add(painter.device()->logicalDpiY());
    hash.add(static_cast<int>(painter.renderHints()));
    return hash.value();
}

template <typename Draw>
void makePicture(QImage& picture, const QPainter& like, const LayerPlace& place,
                 const QSize& canvas, const Draw& draw)
{
    picture = place.newPicture(canvas);
    if (picture.isNull()) {
        return;
    }
    picture.setDotsPerMeterX(qRound(like.device()->logicalDpiX() / 0.0254));
    picture.setDotsPerMeterY(qRound(like.device()->logicalDpiY() / 0.0254));
    QPainter painter(&picture);
    painter.setRenderHints(like.renderHints());
    draw(&painter);
}

} // namespace

void GridLayers::drop()
{
    lines = QImage();
    labels = QImage();
    madeFrom = 0;
}

void GridLayers::draw(QPainter* painter, const LayerPlace& place, const QSize& canvas,
                      FrameGrid& grid)
{
    const std::uint64_t content = contentOf(grid, place.pictureSize(canvas), *painter);
    if (content != madeFrom) {
        madeFrom = content;
        ++pictureCount;
        makePicture(lines, *painter, place, canvas, [&](QPainter* onto) { grid.drawLines(onto); });
        makePicture(labels, *painter, place, canvas, [&](QPainter* onto) {
            onto->setPen(grid.fontColor);
            drawGridLabels(onto, grid, canvas.height());
        });
    }
    place.draw(painter, lines);
    grid.drawTimeLine(painter);
    place.draw(painter, labels);
}
