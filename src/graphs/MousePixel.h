#pragma once

#include "core/Truncate.h"

#include <QPoint>
#include <QPointF>

/// The pixel of a mouse position: cut toward zero, like all pixels of the canvas.
inline QPoint mousePixel(const QPointF& position)
{
    return QPoint(truncateToPixel(position.x()), truncateToPixel(position.y()));
}

/// The same in whole pixels of a device that has `ratio` of them for each of the canvas: what a
/// drag resolves.
inline QPointF mousePlace(const QPointF& position, const double& ratio)
{
    return QPointF(mousePixel(position * ratio)) / ratio;
}
