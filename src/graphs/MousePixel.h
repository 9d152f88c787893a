#pragma once

#include "core/Truncate.h"

#include <QPoint>
#include <QPointF>

/// The pixel of a mouse position: cut toward zero, like all pixels of the canvas.
inline QPoint mousePixel(const QPointF& position)
{
    return QPoint(truncateToPixel(position.x()), truncateToPixel(position.y()));
}
