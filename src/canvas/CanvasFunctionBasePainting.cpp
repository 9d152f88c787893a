#include "canvas/CanvasFunctionBase.h"

#include "canvas/CanvasBackground.h"
#include "canvas/CanvasGesture.h"
#include "canvas/CanvasLayers.h"
#include "canvas/CanvasVisit.h"
#include "canvas/FrameGrid.h"
#include "canvas/FunctionEditor.h"
#include "canvas/LayerPlace.h"
#include "canvas/SelectedKeys.h"
#include "core/Truncate.h"
#include "curves/CurveNode.h"
#include "editor/CurveEditor.h"

#include <QPainter>

namespace {

constexpr int decimalsWithoutEditor = 2;

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
    painter->setPen(QPen(QBrush(Qt::white), 2.0, Qt::DotLine));
    painter->setBrush(view.rectValid ? accepted : refused);
    painter->drawRect(view.rubberRect());
    painter->restore();
}

void paintCrossHair(QPainter* painter, const ViewPort& view, const int& x, const int& y)
{
    painter->setPen(QPen(QBrush(Qt::white), 1.0, Qt::DotLine));
    painter->drawLine(0, y, view.viewWidth, y);
    painter->drawLine(x, 0, x, view.viewHeight);
}

} // namespace

void CanvasFunctionBase::paint(QPainter* painter, const bool& onlyMoved)
{
    if (!widget->isVisible()) {
        return;
    }
    painter->setBackground(QBrush(canvasColor));
    if (!view) {
        return;
    }
    grid->opaqueLabels = !background;
    if (background && view->canvasDirty) {
        scaleBackground(*background, *view);
    }
    painter->eraseRect(widget->rect());
    if (background) {
        painter->drawPixmap(0, 0, background->pixmap);
    }

    if (view->rectValid || view->rectActive) {
        paintRubberBand(painter, *view, selectionColor, canvasColor);
    } else if (!editing.isEmpty()) {
        paintSelectionSpan(painter, *view, editing, selectionColor);
    }
    if (gesture->showMark) {
        const QPointF mark = gesture->lastWorld;
        paintCrossHair(painter, *view, view->pixelX(mark.x()), view->pixelY(mark.y()));
    }
    if (view->canvasDirty) {
        grid->update(*view);
    }
    // What is evaluated for the pixels may be the host's, who may add or remove curves.
    const CanvasVisit visit(this);
    paintCurves(painter, onlyMoved);
}

/// Grid and curves: from what is kept of them, or one by one where that would not do.
void CanvasFunctionBase::paintCurves(QPainter* painter, const bool& onlyMoved)
{
    const QList<CurveNode*> drawn = tops;
    if (const std::optional<LayerPlace> place = LayerPlace::of(painter)) {
        QList<CurveNode*> curves;
        for (CurveNode* top : drawn) {
            curves += top->curves();
        }
        keptLayers->draw(painter, *place, *grid, curves, view,
                         editor ? editor->getNumberOfDecimals() : decimalsWithoutEditor,
                         onlyMoved);
        painter->setRenderHint(QPainter::Antialiasing, true); // as the curves themselves leave it
        return;
    }
    grid->draw(painter);
    for (CurveNode* top : drawn) {
        top->draw(view, painter);
    }
}

CanvasLayers& CanvasFunctionBase::layers()
{
    return *keptLayers;
}

FrameGrid* CanvasFunctionBase::frameGrid() const
{
    return grid.get();
}

void CanvasFunctionBase::setBackground(CanvasBackground* picture)
{
    background.reset(picture);
    view->canvasDirty = true;
}

CanvasBackground* CanvasFunctionBase::backgroundPicture() const
{
    return background.get();
}
