#pragma once

#include "graphs/ViewPort.h"

#include <QTest>

#include <limits>

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

/// 0 to 10 seconds across 400 pixels, -1 to 1 up 200.
inline ViewPort plainView()
{
    ViewPort view;
    view.viewWidth = 400;
    view.viewHeight = 200;
    view.minX = 0.0;
    view.maxX = 10.0;
    return view;
}

/// Sets the candidate rectangle, in seconds and values.
inline void setCandidate(ViewPort& view, const double& x1, const double& x2, const double& y1,
                         const double& y2)
{
    view.newMinX = x1;
    view.newMaxX = x2;
    view.newMinY = y1;
    view.newMaxY = y2;
}

#define COMPARE_RANGE(view, x1, x2, y1, y2)                                                        \
    do {                                                                                           \
        QCOMPARE((view).minX, (x1));                                                               \
        QCOMPARE((view).maxX, (x2));                                                               \
        QCOMPARE((view).minY, (y1));                                                               \
        QCOMPARE((view).maxY, (y2));                                                               \
    } while (false)
