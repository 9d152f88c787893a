#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QPointF>
#include <QSize>

/// Draws antialiased lines into a picture, many times as fast as the toolkit's painter does, and
/// the same on each machine. All lengths are in the picture's own pixels, whose corners have whole
/// numbers.
///
/// Lines that follow one another share no pixel but at sharp turns: a line owns the columns, or
/// rows if it is steep, whose middles it passes, its end excluded. In each it covers as much of a
/// pixel as lies within the line's width. Level and upright lines are moved, by half a pixel at
/// most, to where they are sharp.
class LineRaster
{
public:
    /// The picture must be premultiplied, or without alpha, at 32 bits a pixel, and outlive this;
    /// it is not owned.
    explicit LineRaster(QImage& picture);

    static bool canDrawInto(const QImage& picture);

    /// Solid lines from now on. `width` in pixels.
    void setPen(const QColor& color, const double& width);
    /// Of each `period` pixels along the line only the first `on` are drawn from now on.
    void setDots(const int& on, const int& period);
    /// Begins the pattern of dots anew.
    void restartDots() { phase = 0; }

    void drawLine(const QPointF& from, const QPointF& to);
    /// A line for each two points that follow one another.
    void drawPolyline(const QPointF* points, const qsizetype& count);

    /// Draws a premultiplied picture with its middle on a corner of pixels.
    void drawStamp(const QImage& stamp, const QPoint& middle);

private:
    struct Way;

    void walk(const Way& way);
    void cover(quint32* first, const qsizetype& stride, const int& length, int low, int high);
    void blend(quint32& pixel, const quint32& coverage);
    bool isOn();

    quint32* bits;
    qsizetype rowStride; ///< in pixels
    QSize size;
    quint32 color = 0; ///< premultiplied
    double width = 1.0;
    int dotLength = 0; ///< 0 in solid lines
    int dotPeriod = 1;
    int phase = 0;
};
