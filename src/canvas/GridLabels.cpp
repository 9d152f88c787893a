#include "canvas/GridLabels.h"

#include "canvas/FrameGrid.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int usualDigits = 6;
constexpr int mostDigits = 17; // more do not tell two doubles apart

constexpr int labelGap = 4;           ///< between a line and its label
constexpr int labelBorderGap = 5;     ///< between a border and a label
constexpr int leftmostTimeLabel = 12; ///< a time label at or left of this is left out

QStringList labelsOf(const int& count, const int& zeroIndex, const double& first,
                     const double& step, const int& digits)
{
    QStringList labels;
    for (int i = 0; i < count; ++i) {
        labels << (i == zeroIndex ? QStringLiteral("0")
                                  : QStringLiteral("%1").arg(i * step + first, 0, 'G', digits,
                                                             QLatin1Char(' ')));
    }
    return labels;
}

bool neighboursDiffer(const QStringList& labels)
{
    return std::adjacent_find(labels.cbegin(), labels.cend()) == labels.cend();
}

} // namespace

QStringList gridLabels(const int& count, const int& zeroIndex, const double& first,
                       const double& step)
{
    QStringList labels = labelsOf(count, zeroIndex, first, step, usualDigits);
    for (int digits = usualDigits + 1; digits <= mostDigits && !neighboursDiffer(labels);
         ++digits) {
        labels = labelsOf(count, zeroIndex, first, step, digits);
    }
    return labels;
}

LabelRow::LabelRow(QPainter* onto)
    : painter(onto)
{}

QRect LabelRow::boxOf(const QPoint& place, const QString& text) const
{
    const QFontMetrics metrics = painter->fontMetrics();
    return QRect(place.x(), place.y() - metrics.ascent(), metrics.horizontalAdvance(text),
                 metrics.height());
}

void LabelRow::draw(const QPoint& place, const QString& text)
{
    taken.push_back(boxOf(place, text));
    painter->drawText(place, text);
}

void LabelRow::drawIfFree(const QPoint& place, const QString& text)
{
    const QRect box = boxOf(place, text);
    if (std::none_of(taken.cbegin(), taken.cend(),
                     [&box](const QRect& other) { return other.intersects(box); })) {
        draw(place, text);
    }
}

void drawGridLabels(QPainter* painter, const FrameGrid& grid, const int& height)
{
    painter->setFont(grid.labelFont);
    painter->setBackgroundMode(Qt::TransparentMode);
    const Qt::LayoutDirection direction = painter->layoutDirection();
    painter->setLayoutDirection(Qt::LeftToRight); // or the sign would stand behind its number
    LabelRow row(painter);
    const int lineCount = static_cast<int>(grid.lines.size() / 2);
    const QStringList values = gridLabels(grid.countY, grid.zeroIndexY, grid.firstY, grid.stepY);
    for (int j = 0; j < std::min(grid.countY, lineCount - grid.countX); ++j) {
        const int line = grid.lines.at(qsizetype{2} * (grid.countX + j)).y();
        row.draw(QPoint(labelBorderGap, line - labelGap), values[j]);
    }
    const QStringList times = gridLabels(grid.countX, grid.zeroIndexX, grid.firstX, grid.stepX);
    for (int i = 0; i < std::min(grid.countX, lineCount); ++i) {
        const int x = grid.lines.at(qsizetype{2} * i).x() + labelGap;
        if (x > leftmostTimeLabel) {
            row.drawIfFree(QPoint(x, height - labelBorderGap), times[i]);
        }
    }
    painter->setLayoutDirection(direction);
    painter->setBackgroundMode(Qt::OpaqueMode);
}
