#pragma once

#include <QColor>
#include <QImage>

/// The mark of a key or of a handle's end as a small picture, made once for a colour and a ratio
/// of the device. Its middle is a corner of four pixels.
class KeyStamp
{
public:
    enum Shape
    {
        square, ///< 5 by 5 logical pixels
        disc,   ///< as wide
        point   ///< 2 by 2
    };

    /// The picture, in the device's pixels; the same one until another thread or many other stamps
    /// are asked for.
    static const QImage& of(const Shape& shape, const QColor& color, const double& ratio);
};
