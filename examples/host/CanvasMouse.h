#pragma once

#include <QPoint>
#include <QPointF>

class QWidget;
class SplineBase;

/// The view that was set on the editor, in seconds and value.
struct CanvasRange
{
    double minX;
    double maxX;
    double minY;
    double maxY;
};

/// A mouse on the editor's canvas: it turns times and values into pixels by the range that was set
/// on the editor, and sends the canvas what a hand would.
class CanvasMouse
{
public:
    /// `canvas` is not owned.
    CanvasMouse(QWidget* canvas, const CanvasRange& visible);

    /// The first widget inside `parent` that is of this class by name; null if there is none.
    static QWidget* findCanvas(QWidget* parent);

    /// The pixel of a time and value, cut toward zero as the canvas does.
    QPoint pixelOf(double time, double value) const;
    /// The time (x) and value (y) of a pixel.
    QPointF worldOf(const QPoint& pixel) const;
    /// Where the canvas draws the outgoing handle of the Bezier key at the index.
    QPoint rightHandle(const SplineBase& spline, unsigned index) const;

    /// Presses the left button, moves in steps and releases.
    void drag(const QPoint& from, const QPoint& to) const;

private:
    QWidget* const widget;
    const CanvasRange range;
};
