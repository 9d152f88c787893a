#pragma once

#include "canvas/CurveLayers.h"
#include "canvas/GridLayers.h"

/// What the canvas keeps of its last picture.
class CanvasLayers
{
public:
    /// Draws grid, time line and curves. `decimals` is that of the labels at selected keys; see
    /// CurveLayers for `onlyMoved`.
    void draw(QPainter* painter, const LayerPlace& place, FrameGrid& grid,
              const QList<CurveNode*>& curves, ViewPort* view, const int& decimals,
              const bool& onlyMoved);
    /// Frees all pictures, for when they are not to be seen or when fonts have changed.
    void drop();

    const CurveLayers& curveLayers() const { return curvePictures; }
    const GridLayers& gridLayers() const { return gridPictures; }

private:
    GridLayers gridPictures;
    CurveLayers curvePictures;
};
