#include "CanvasMouse.h"

#include <core/SplineBase.h>
#include <core/Truncate.h>
#include <editor/CurveEditor.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

#include <cmath>

CanvasMouse::CanvasMouse(QWidget& canvas, const CanvasRange& visible)
    : widget(canvas)
    , range(visible)
{}

QWidget& CanvasMouse::canvasOf(const CurveEditor& editor)
{
    QWidget* canvas = nullptr;
    for (QWidget* const child : editor.functionView->findChildren<QWidget*>()) {
        if (child->inherits("FunctionEditor")) {
            canvas = child;
        }
    }
    return *canvas;
}

QPoint CanvasMouse::pixelOf(double time, double value) const
{
    return {truncateToPixel((time - range.minX) * (widget.width() / (range.maxX - range.minX))),
            truncateToPixel((range.maxY - value) * (widget.height() / (range.maxY - range.minY)))};
}

QPointF CanvasMouse::worldOf(const QPoint& pixel) const
{
    return {
        static_cast<double>(pixel.x()) / widget.width() * (range.maxX - range.minX) + range.minX,
        range.maxY - static_cast<double>(pixel.y()) / widget.height() * (range.maxY - range.minY)};
}

/// A handle stands at a fixed distance from its key, in the direction in which the curve leaves it
/// on the screen.
QPoint CanvasMouse::rightHandle(const SplineBase& spline, unsigned index) const
{
    double length = 0.0;
    const double slope = spline.getTangentRightAtNode(index + 1, length);
    const double aspect = (range.maxX - range.minX) *
                          (static_cast<double>(widget.height()) / widget.width()) /
                          (range.maxY - range.minY);
    const double steepness = slope * aspect;
    const double across = 1.0 / std::sqrt(steepness * steepness + 1.0);
    const double pixels = index == 0 ? 45.0 : (length + 0.333) * 45.0;
    const PointInfo* key = spline[index];
    const QPoint at = pixelOf(key->time, key->value);
    return {truncateToPixel(at.x() + pixels * across),
            truncateToPixel(at.y() - pixels * steepness * across)};
}

void CanvasMouse::drag(const QPoint& from, const QPoint& to) const
{
    press(from);
    moveHeld(from, to);
    release(to);
}

void CanvasMouse::click(const QPoint& at) const
{
    press(at);
    release(at);
}

void CanvasMouse::press(const QPoint& at) const
{
    // The canvas knows the pixels of its keys from its last painting.
    widget.grab();
    send(QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton);
    send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
}

void CanvasMouse::moveHeld(const QPoint& from, const QPoint& to) const
{
    constexpr int steps = 8;
    for (int step = 1; step <= steps; ++step) {
        send(QEvent::MouseMove, from + (to - from) * step / steps, Qt::NoButton, Qt::LeftButton);
    }
}

void CanvasMouse::release(const QPoint& at) const
{
    send(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
}

void CanvasMouse::send(QEvent::Type type, const QPoint& at, Qt::MouseButton button,
                       Qt::MouseButtons held) const
{
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}
