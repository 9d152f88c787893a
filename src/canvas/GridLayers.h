#pragma once

#include <QImage>

#include <cstdint>

class FrameGrid;
class LayerPlace;
class QPainter;

/// The grid as two transparent pictures, its lines and its labels, between which the time line is
/// drawn. They are made anew when anything that they show has changed.
class GridLayers
{
public:
    /// The grid must be up to date.
    void draw(QPainter* painter, const LayerPlace& place, const QSize& canvas, FrameGrid& grid);
    /// Frees the pictures.
    void drop();
    /// How often they were made since the beginning.
    int paintedPictures() const { return pictureCount; }

private:
    QImage lines;
    QImage labels;
    std::uint64_t madeFrom = 0;
    int pictureCount = 0;
};
