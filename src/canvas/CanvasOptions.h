#pragma once

#include "core/InterpolationType.h"

#include <QColor>

/// What a user or an application sets for a canvas.
struct CanvasOptions
{
    double vSnapRadius = 0.25; ///< share of the grid step
    double hSnapRadius = 0.1;
    bool verticalSnap = false;
    bool horizontalSnap = false;
    bool toolTipsOn = false;                 ///< labels at selected keys always
    bool toolTipsWhileDragging = true;       ///< labels at selected keys during a drag
    bool defaultBrokenTangent = false;       ///< new keys
    bool defaultAddFunction = false;         ///< stored and read by nobody
    int defaultNodeType = zk_spline::bezier; ///< new keys
    QColor selectionColor{20, 10, 105, 255};
    QColor canvasColor{0, 0, 0};
};
