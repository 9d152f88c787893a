#pragma once

#include <QColor>
#include <QFont>
#include <QPen>

/// How the grid looks.
struct GridStyle
{
    QFont labelFont;
    QPen linePen;
    QColor fontColor;
    QColor timeLineColor;
    QColor vLineColor;        ///< of the line along the bottom border
    QColor hLineColor;        ///< of the line along the left border
    bool opaqueLabels = true; ///< false while a background image is shown
};
