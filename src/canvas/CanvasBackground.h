#pragma once

#include <QImage>
#include <QPixmap>

/// The picture behind the curves.
struct CanvasBackground
{
    QPixmap pixmap;        ///< the image scaled to the canvas
    QImage image;          ///< the file as loaded
    qint64 scaledFrom = 0; ///< cacheKey of the image that the pixmap was made from
};
