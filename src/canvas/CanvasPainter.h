#pragma once

#include <QPointF>

#include <memory>
#include <optional>

struct CanvasBackground;
class CanvasFunctionBase;
class FrameGrid;
class QPainter;
class QWidget;
class ViewPort;

/// Paints what lies behind the curves: background, selection or rubber band, cross-hair and grid.
class CanvasPainter
{
public:
    /// Neither is owned; both outlive the painter.
    CanvasPainter(QWidget* canvasWidget, ViewPort* viewPort);
    ~CanvasPainter();
    CanvasPainter(const CanvasPainter&) = delete;
    CanvasPainter& operator=(const CanvasPainter&) = delete;

    /// `mark` is the point of the world at which the cross-hair is drawn.
    void paint(QPainter* painter, const CanvasFunctionBase& canvas,
               const std::optional<QPointF>& mark);

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
};
