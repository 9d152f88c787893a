#include "canvas/CanvasPainter.h"

#include "canvas/CanvasBackground.h"
#include "canvas/CanvasFunctionBase.h"
#include "canvas/FrameGrid.h"
#include "canvas/LayerPlace.h"
#include "core/Truncate.h"
#include "curves/CurveNode.h"
#include "curves/SelectedKeys.h"
#include "graphs/CanvasColors.h"
#include "graphs/ViewPort.h"

#include <QPainter>
#include <QWidget>

#include <utility>

namespace {

/// Scales the picture to the canvas, with no regard for its aspect ratio.
void scaleBackground(CanvasBackground& picture, const ViewPort& view)
{
    const QSize size(view.viewWidth, view.viewHeight);
    if (picture.image.isNull() || size.isEmpty()) {
        picture.pixmap = QPixmap();
        return;
    }
    if (picture.pixmap.size() != size || picture.scaledFrom != picture.image.cacheKey()) {
        picture.pixmap = QPixmap::fromImage(
            picture.image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        picture.scaledFrom = picture.image.cacheKey();
    }
}

/// From the first to the last selected key, over the whole height.
void paintSelectionSpan(QPainter* painter, const ViewPort& view, const QList<CurveNode*>& curves,
                        const QColor& color)
{
    double low = 0.0;
    double high = 0.0;
    SelectedKeys(curves).span(low, high);
    const double scale = view.viewWidth / (view.maxX - view.minX);
    const int left = truncateToPixel(scale * (low - view.minX));
    const int right = truncateToPixel(scale * (high - view.minX)) - 1;
    if (right >= left) {
        painter->fillRect(QRect(QPoint(left, 0), QPoint(right, view.viewHeight - 1)), color);
    }
}

/// A rectangle too small to be accepted shows in the colour of the canvas.
void paintRubberBand(QPainter* painter, const ViewPort& view, const QColor& accepted,
                     const QColor& refused)
{
    painter->save();
    painter->setPen(QPen(QBrush(CanvasColors::shared().overlay), 2.0, Qt::DotLine));
    painter->setBrush(view.rectValid ? accepted : refused);
    painter->drawRect(view.rubberRect());
    painter->restore();
}

void paintCrossHair(QPainter* painter, const ViewPort& view, const int& x, const int& y)
{
    painter->setPen(QPen(QBrush(CanvasColors::shared().overlay), 1.0, Qt::DotLine));
    painter->drawLine(0, y, view.viewWidth, y);
    painter->drawLine(x, 0, x, view.viewHeight);
}

} // namespace

CanvasPainter::CanvasPainter(QWidget* canvasWidget, ViewPort* viewPort)
    : widget(canvasWidget)
    , view(viewPort)
    , frameGrid(std::make_unique<FrameGrid>(canvasWidget))
{}

CanvasPainter::~CanvasPainter() = default;

void CanvasPainter::paint(QPainter* painter, const CanvasFunctionBase& canvas,
                          const std::optional<QPointF>& mark)
{
    painter->setBackground(QBrush(canvas.canvasColor));
    paintBackground(painter);
    if (view->rectValid || view->rectActive) {
        paintRubberBand(painter, *view, canvas.selectionColor, canvas.canvasColor);
    } else if (canvas.isEditing()) {
        paintSelectionSpan(painter, *view, canvas.editingCurves(), canvas.selectionColor);
    }
    if (mark) {
        paintCrossHair(painter, *view, view->pixelX(mark->x()), view->pixelY(mark->y()));
    }
    if (view->canvasDirty) {
        frameGrid->update(*view);
    }
}

/// From what is kept of them, or one by one where that would not do.
void CanvasPainter::paintCurves(QPainter* painter, const QList<CurveNode*>& tops,
                                const int& decimals, const bool& onlyMoved)
{
    const std::optional<LayerPlace> place = LayerPlace::of(painter);
    if (!place) {
        frameGrid->draw(painter);
        for (CurveNode* top : tops) {
            top->draw(view, painter);
        }
        return;
    }
    QList<CurveNode*> curves;
    for (CurveNode* top : tops) {
        curves += top->curves();
    }
    keptLayers.draw(painter, *place, *frameGrid, curves, view, decimals, onlyMoved);
    painter->setRenderHint(QPainter::Antialiasing); // as curves that draw themselves leave it
}

void CanvasPainter::paintBackground(QPainter* painter)
{
    frameGrid->opaqueLabels = !backgroundPicture;
    if (backgroundPicture && view->canvasDirty) {
        scaleBackground(*backgroundPicture, *view);
    }
    painter->eraseRect(widget->rect());
    if (backgroundPicture) {
        painter->drawPixmap(0, 0, backgroundPicture->pixmap);
    }
}

FrameGrid* CanvasPainter::grid() const
{
    return frameGrid.get();
}

void CanvasPainter::setBackground(std::unique_ptr<CanvasBackground> picture)
{
    backgroundPicture = std::move(picture);
    view->canvasDirty = true;
}

CanvasBackground* CanvasPainter::background() const
{
    return backgroundPicture.get();
}
