#pragma once

#include <QEvent>
#include <QPoint>
#include <QPointF>

class CurveEditor;
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
    CanvasMouse(QWidget& canvas, const CanvasRange& visible);

    /// The canvas as a plain widget, found by its class among those of the editor.
    static QWidget& canvasOf(const CurveEditor& editor);

    /// The pixel of a time and value, cut toward zero as the canvas does.
    QPoint pixelOf(double time, double value) const;
    /// The time (x) and value (y) of a pixel.
    QPointF worldOf(const QPoint& pixel) const;
    /// Where the canvas draws the outgoing handle of the Bezier key at the index.
    QPoint rightHandle(const SplineBase& spline, unsigned index) const;

    /// Presses the left button, moves in steps and releases.
    void drag(const QPoint& from, const QPoint& to) const;
    void click(const QPoint& at) const;

    /// The parts of a drag, for what is done in the middle of it.
    void press(const QPoint& at) const;
    void moveHeld(const QPoint& from, const QPoint& to) const;
    void release(const QPoint& at) const;

private:
    void send(QEvent::Type type, const QPoint& at, Qt::MouseButton button,
              Qt::MouseButtons held) const;

    QWidget& widget;
    const CanvasRange range;
};
