#pragma once

#include <QColor>

/// Colours shared by all canvases of the process.
struct CanvasColors
{
    QColor controlPoint{0, 0, 0, 255};
    QColor controlPointSelected{255, 0, 0, 255};
    QColor controller{255, 255, 220, 255};
    QColor brokenController{100, 255, 220, 255};
    QColor controllerSelected{255, 0, 220, 255};
    QColor overlay{255, 255, 255, 255}; ///< labels at keys, rubber band and cross-hair

    static CanvasColors& shared();
};
