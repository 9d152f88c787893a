#pragma once

#include "canvas/GridSteps.h"
#include "canvas/GridStyle.h"

#include <QPolygon>

class QPainter;
class QWidget;
class ViewPort;

/// The grid of the canvas with its labels, border lines and time line.
class FrameGrid : public GridStyle, public GridSteps
{
public:
    /// `canvasWidget` gives the present size; not owned.
    explicit FrameGrid(QWidget* canvasWidget);

    /// Works out steps and lines for a view. An inverted, empty, NaN or infinite range leaves
    /// everything but the size as it was.
    void update(const ViewPort& view);
    void draw(QPainter* painter);
    /// The three parts of it, from the bottom to the top. Labels are in the painter's pen.
    void drawLines(QPainter* painter) const;
    void drawTimeLine(QPainter* painter) const;
    QPolygon lines; ///< pairs of end points: vertical lines first, then horizontal ones
    int timeLinePixel = 0;
    int gridWidth = 0; ///< size at the last update, pixels
    int gridHeight = 0;

private:
    QWidget* owner; ///< not owned
};
