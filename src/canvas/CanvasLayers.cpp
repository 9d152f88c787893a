#include "canvas/CanvasLayers.h"

#include "canvas/FrameGrid.h"
#include "canvas/LayerPlace.h"
#include "core/ContentHash.h"
#include "graphs/CanvasColors.h"
#include "graphs/ViewPort.h"

#include <QHash>
#include <QPainter>

namespace {

/// All that the picture of any curve depends on.
std::uint64_t commonTo(const ViewPort& view, const QFont& font, const int& decimals,
                       const QPainter& painter)
{
    ContentHash hash;
    for (const double& number : {view.minX, view.maxX, view.minY, view.maxY}) {
        hash.add(number);
    }
    hash.add(view.viewWidth);
    hash.add(view.viewHeight);
    hash.add(view.showLabels);
    hash.add(view.thinsKeys);
    if (view.showLabels) {
        hash.add(view.fps);
        hash.add(view.showFrames);
        hash.add(decimals);
        hash.add(qHash(font));
    }
    const CanvasColors& colors = CanvasColors::shared();
    for (const QColor& color :
         {colors.controlPoint, colors.controlPointSelected, colors.controller,
          colors.brokenController, colors.controllerSelected, colors.overlay}) {
        hash.add(color.rgba());
    }
    hash.add(painter.device()->devicePixelRatioF());
    hash.add(painter.device()->logicalDpiY());
    hash.add(static_cast<int>(painter.renderHints()));
    return hash.value();
}

} // namespace

void CanvasLayers::drop()
{
    gridPictures.drop();
    curvePictures.drop();
}

void CanvasLayers::draw(QPainter* painter, const LayerPlace& place, FrameGrid& grid,
                        const QList<CurveNode*>& curves, ViewPort* view, const int& decimals,
                        const bool& onlyMoved)
{
    const std::uint64_t common = commonTo(*view, grid.labelFont, decimals, *painter);
    gridPictures.draw(painter, place, QSize(view->viewWidth, view->viewHeight), grid);
    curvePictures.draw(painter, place, curves, view, grid.labelFont, common, onlyMoved);
}
