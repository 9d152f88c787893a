#pragma once

#include <QImage>
#include <QPixmap>

/// The picture behind the curves.
struct CanvasBackground
{
    QPixmap pixmap; ///< the image scaled to the canvas
    QImage image;   ///< the file as loaded
};
