#pragma once

#include <QColor>
#include <QFont>
#include <QPen>
#include <QPolygon>

class QPainter;
class QWidget;
class ViewPort;

/// The grid of the canvas with its labels, border lines and time line.
class FrameGrid
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
    void drawLabels(QPainter* painter) const;

    bool opaqueLabels = true; ///< false while a background image is shown
    QPolygon lines;           ///< pairs of end points: vertical lines first, then horizontal ones
    QFont labelFont;
    QPen linePen;
    QColor fontColor;
    QColor timeLineColor;
    QColor vLineColor;  ///< of the line along the bottom border
    QColor hLineColor;  ///< of the line along the left border
    double stepX = 0.0; ///< between lines, in displayed units
    double stepY = 0.0;
    double firstX = 0.0; ///< displayed value of the first line
    double firstY = 0.0;
    double snapStepX = 0.0; ///< stepX in seconds
    double snapStepY = 0.0;
    int countX = 0; ///< lines
    int countY = 0;
    int zeroIndexX = -1; ///< the line standing on zero, or -1
    int zeroIndexY = -1;
    int timeLinePixel = 0;
    int gridWidth = 0; ///< size at the last update, pixels
    int gridHeight = 0;

private:
    QWidget* owner; ///< not owned
};
