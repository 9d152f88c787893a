#include "CanvasMouse.h"

#include <core/SplineBase.h>
#include <core/Truncate.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>

CanvasMouse::CanvasMouse(QWidget* canvas, const CanvasRange& visible)
    : widget(canvas)
    , range(visible)
{}

QWidget* CanvasMouse::findCanvas(QWidget* parent)
{
    const QList<QWidget*> children = parent->findChildren<QWidget*>();
    const auto found = std::find_if(children.begin(), children.end(), [](const QWidget* child) {
        return qstrcmp(child->metaObject()->className(), "FunctionEditor") == 0;
    });
    return found == children.end() ? nullptr : *found;
}

QPoint CanvasMouse::pixelOf(double time, double value) const
{
    return {truncateToPixel((time - range.minX) * (widget->width() / (range.maxX - range.minX))),
            truncateToPixel((range.maxY - value) * (widget->height() / (range.maxY - range.minY)))};
}

QPointF CanvasMouse::worldOf(const QPoint& pixel) const
{
    return {
        static_cast<double>(pixel.x()) / widget->width() * (range.maxX - range.minX) + range.minX,
        range.maxY - static_cast<double>(pixel.y()) / widget->height() * (range.maxY - range.minY)};
}

/// A handle stands at a fixed distance from its key, in the direction in which the curve leaves it
/// on the screen.
QPoint CanvasMouse::rightHandle(const SplineBase& spline, unsigned index) const
{
    double length = 0.0;
    const double slope = spline.getTangentRightAtNode(index + 1, length);
    const double aspect = (range.maxX - range.minX) *
                          (static_cast<double>(widget->height()) / widget->width()) /
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
    const auto send = [this](QEvent::Type type, const QPoint& at, Qt::MouseButton button,
                             Qt::MouseButtons held) {
        QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
    };
    // The canvas knows the pixels of its keys from its last painting.
    widget->grab();
    send(QEvent::MouseMove, from, Qt::NoButton, Qt::NoButton);
    send(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    constexpr int steps = 8;
    for (int step = 1; step <= steps; ++step) {
        send(QEvent::MouseMove, from + (to - from) * step / steps, Qt::NoButton, Qt::LeftButton);
    }
    send(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
}
