#pragma once

#include <QRect>
#include <QStringList>

#include <vector>

class FrameGrid;
class QPainter;

/// The texts at the lines of one axis: as short as may be, but no two neighbours the same.
/// `zeroIndex` is the line standing on zero, or -1.
QStringList gridLabels(const int& count, const int& zeroIndex, const double& first,
                       const double& step);

/// Draws the labels of a grid on a canvas of that height: those of values always, those of times
/// where they have room.
void drawGridLabels(QPainter* painter, const FrameGrid& grid, const int& height);

/// Draws texts that stand side by side, and leaves out those that would lie on one drawn before.
class LabelRow
{
public:
    /// Not owned; its font and pen are those of the labels.
    explicit LabelRow(QPainter* painter);

    /// A text that is drawn whatever lies beneath it.
    void draw(const QPoint& place, const QString& text);
    void drawIfFree(const QPoint& place, const QString& text);

private:
    QRect boxOf(const QPoint& place, const QString& text) const;

    QPainter* painter;
    std::vector<QRect> taken;
};
