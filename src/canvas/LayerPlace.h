#pragma once

#include <QPoint>
#include <QSize>

#include <optional>

class QImage;
class QPainter;

/// Where on a painter's device the canvas's own pictures go, pixel on pixel.
class LayerPlace
{
public:
    /// None where pictures would not do: on a printer, or under a transform that is more than the
    /// device's own ratio.
    static std::optional<LayerPlace> of(QPainter* painter);

    /// A transparent picture of a canvas of that many logical pixels.
    QImage newPicture(const QSize& canvas) const;
    QSize pictureSize(const QSize& canvas) const;
    void draw(QPainter* painter, const QImage& picture) const;

    double ratio = 1.0; ///< the device's pixels a logical one

private:
    QPoint origin; ///< of the logical pixels, in the device's
};
