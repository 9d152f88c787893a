#include "graphs/LineRaster.h"

#include "core/Truncate.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int wholePixel = 256;

// Level and upright lines no shorter than this lie on whole pixels, where they are sharp.
constexpr double shortest = 4.0;

/// Each of the four channels times a share of 0 to 256.
quint32 scaled(const quint32& pixel, const quint32& share)
{
    const quint32 even = ((pixel & 0x00ff00ffu) * share >> 8) & 0x00ff00ffu;
    const quint32 odd = ((pixel >> 8) & 0x00ff00ffu) * share & 0xff00ff00u;
    return even | odd;
}

} // namespace

/// A line along its longer axis: from one coordinate to a greater one, the other one changing by
/// `slope` a pixel.
struct LineRaster::Way
{
    double from;
    double to;
    double across; ///< at `from`
    double slope;
    qsizetype stride;       ///< from one pixel to the next along the axis
    qsizetype acrossStride; ///< the same across
    int length;             ///< of the picture, in pixels
    int acrossLength;
    bool isReversed;
};

LineRaster::LineRaster(QImage& picture)
    : bits(reinterpret_cast<quint32*>(picture.bits()))
    , rowStride(picture.bytesPerLine() / qsizetype{sizeof(quint32)})
    , size(picture.size())
{}

bool LineRaster::canDrawInto(const QImage& picture)
{
    return picture.format() == QImage::Format_ARGB32_Premultiplied ||
           picture.format() == QImage::Format_RGB32;
}

void LineRaster::setPen(const QColor& penColor, const double& penWidth)
{
    color = qPremultiply(penColor.rgba());
    width = penWidth;
    dotLength = 0;
}

void LineRaster::setDots(const int& on, const int& period)
{
    dotLength = std::max(on, 1);
    dotPeriod = std::max(period, 1);
    phase = 0;
}

bool LineRaster::isOn()
{
    const bool on = phase < dotLength;
    phase = phase + 1 < dotPeriod ? phase + 1 : 0;
    return on;
}

void LineRaster::blend(quint32& pixel, const quint32& coverage)
{
    const quint32 source = scaled(color, coverage);
    // 255 is all of a channel, and 256 all of a share.
    const quint32 alpha = source >> 24;
    pixel = source + scaled(pixel, 256 - (alpha + (alpha >> 7)));
}

/// What lies between two coordinates of a column or row, in 256ths of a pixel.
void LineRaster::cover(quint32* first, const qsizetype& stride, const int& length, int low,
                       int high)
{
    low = std::max(low, 0);
    high = std::min(high, length * wholePixel);
    if (low >= high) {
        return;
    }
    const int begin = low / wholePixel;
    const int last = (high - 1) / wholePixel;
    quint32* pixel = first + begin * stride;
    if (begin == last) {
        blend(*pixel, static_cast<quint32>(high - low));
        return;
    }
    blend(*pixel, static_cast<quint32>((begin + 1) * wholePixel - low));
    for (int i = begin + 1; i < last; ++i) {
        pixel += stride;
        blend(*pixel, wholePixel);
    }
    blend(pixel[stride], static_cast<quint32>(high - last * wholePixel));
}

void LineRaster::walk(const Way& way)
{
    const auto heldToPicture = [&way](double place) {
        return truncateToInt(std::ceil(std::clamp<double>(place, 0.0, way.length)));
    };
    const int first = heldToPicture(way.from - 0.5);
    const int last = heldToPicture(way.to - 0.5) - 1;
    if (first > last) {
        return;
    }
    const double reach = width / 2.0 * std::sqrt(1.0 + way.slope * way.slope) * wholePixel;
    const int start = way.isReversed ? last : first;
    const int step = way.isReversed ? -1 : 1;
    // Far outside of the picture one place is as good as another.
    const double farthest = way.acrossLength + 16.0;
    double middle = (way.across + (start + 0.5 - way.from) * way.slope) * wholePixel;
    const double rise = way.slope * step * wholePixel;
    quint32* pixels = bits + start * way.stride;
    for (int count = last - first + 1; count > 0; --count) {
        if (dotLength == 0 || isOn()) {
            const double held =
                std::clamp(middle, -farthest * wholePixel, 2.0 * farthest * wholePixel);
            cover(pixels, way.acrossStride, way.acrossLength, truncateToInt(held - reach),
                  truncateToInt(held + reach));
        }
        middle += rise;
        pixels += step * way.stride;
    }
}

void LineRaster::drawLine(const QPointF& from, const QPointF& to)
{
    const QPointF way = to - from;
    if (!std::isfinite(way.x()) || !std::isfinite(way.y())) {
        return;
    }
    const bool isSteep = std::fabs(way.y()) > std::fabs(way.x());
    const double along = isSteep ? way.y() : way.x();
    if (along == 0.0) {
        return;
    }
    const bool isReversed = along < 0.0;
    QPointF low = isReversed ? to : from;
    const QPointF& high = isReversed ? from : to;
    const auto onPixels = [this](double across) {
        return std::floor(across - width / 2.0 + 0.5) + width / 2.0;
    };
    if (way.x() == 0.0 && std::fabs(along) > shortest) {
        low.setX(onPixels(low.x()));
    } else if (way.y() == 0.0 && std::fabs(along) > shortest) {
        low.setY(onPixels(low.y()));
    }
    if (isSteep) {
        walk({low.y(), high.y(), low.x(), way.x() / way.y(), rowStride, 1, size.height(),
              size.width(), isReversed});
    } else {
        walk({low.x(), high.x(), low.y(), way.y() / way.x(), 1, rowStride, size.width(),
              size.height(), isReversed});
    }
}

void LineRaster::drawPolyline(const QPointF* points, const qsizetype& count)
{
    for (qsizetype i = 1; i < count; ++i) {
        drawLine(points[i - 1], points[i]);
    }
}

void LineRaster::drawStamp(const QImage& stamp, const QPoint& middle)
{
    const int left = middle.x() - stamp.width() / 2;
    const int top = middle.y() - stamp.height() / 2;
    const int firstColumn = std::max(0, -left);
    const int endColumn = std::min(stamp.width(), size.width() - left);
    for (int y = std::max(0, -top); y < std::min(stamp.height(), size.height() - top); ++y) {
        const auto* const source = reinterpret_cast<const quint32*>(stamp.constScanLine(y));
        quint32* const target = bits + (top + y) * rowStride + left;
        for (int x = firstColumn; x < endColumn; ++x) {
            const quint32 alpha = source[x] >> 24;
            target[x] = alpha == 255 ? source[x]
                                     : source[x] + scaled(target[x], 256 - (alpha + (alpha >> 7)));
        }
    }
}
