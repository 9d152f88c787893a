// What the canvas shows.

#include "canvas/CanvasFunctionBase.h"

#include "canvas/CanvasBackground.h"
#include "canvas/CanvasGestures.h"
#include "canvas/CanvasPainter.h"
#include "canvas/FunctionEditor.h"
#include "curves/CurveHost.h"
#include "curves/CurveNode.h"
#include "curves/CurveVisit.h"

void CanvasFunctionBase::paint(QPainter* painter, const bool& onlyMoved)
{
    if (!widget->isVisible()) {
        return;
    }
    std::optional<QPointF> mark;
    if (gestures->stage.showMark) {
        mark = gestures->stage.lastWorld;
    }
    ground->paint(painter, *this, mark);
    // What is evaluated for the pixels may be the host's, who may add or remove curves.
    const CurveVisit visit(&curveTree);
    ground->paintCurves(painter, curveTree.topNodes(), curveHost->labelDecimals(), onlyMoved);
}

CanvasLayers& CanvasFunctionBase::layers()
{
    return ground->layers();
}

void CanvasFunctionBase::dropLayers()
{
    ground->layers().drop();
}

FrameGrid* CanvasFunctionBase::frameGrid() const
{
    return ground->grid();
}

void CanvasFunctionBase::setBackground(std::unique_ptr<CanvasBackground> picture)
{
    ground->setBackground(std::move(picture));
}

CanvasBackground* CanvasFunctionBase::backgroundPicture() const
{
    return ground->background();
}
