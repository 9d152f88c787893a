#pragma once

#include "canvas/CanvasLayers.h"

#include <QList>
#include <QPointF>

#include <memory>
#include <optional>

struct CanvasBackground;
class CanvasFunctionBase;
class CurveNode;
class FrameGrid;
class QPainter;
class QWidget;
class ViewPort;

/// Paints the canvas: background, selection or rubber band, cross-hair, and above them grid and
/// curves, of which it keeps pictures.
class CanvasPainter
{
public:
    /// Neither is owned; both outlive the painter.
    CanvasPainter(QWidget* canvasWidget, ViewPort* viewPort);
    ~CanvasPainter();
    CanvasPainter(const CanvasPainter&) = delete;
    CanvasPainter& operator=(const CanvasPainter&) = delete;

    /// What lies behind the grid. `mark` is the point of the world at which the cross-hair is
    /// drawn.
    void paint(QPainter* painter, const CanvasFunctionBase& canvas,
               const std::optional<QPointF>& mark);

    /// Grid and curves, those under the given nodes of the tree. See CanvasLayers.
    void paintCurves(QPainter* painter, const QList<CurveNode*>& tops, const int& decimals,
                     const bool& onlyMoved);
    CanvasLayers& layers() { return keptLayers; }

    /// Never null; owned by the painter.
    FrameGrid* grid() const;
    /// Null removes the picture.
    void setBackground(std::unique_ptr<CanvasBackground> picture);
    CanvasBackground* background() const;

private:
    void paintBackground(QPainter* painter);

    QWidget* widget;
    ViewPort* view;
    std::unique_ptr<FrameGrid> frameGrid;
    std::unique_ptr<CanvasBackground> backgroundPicture;
    CanvasLayers keptLayers;
};
