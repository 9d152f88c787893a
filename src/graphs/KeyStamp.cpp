#include "graphs/KeyStamp.h"

#include "core/Truncate.h"

#include <QHash>
#include <QPainter>

#include <cmath>

namespace {

constexpr double side = 5.0;
constexpr double pointSide = 2.0;
constexpr qsizetype mostStamps = 1024;

QImage madeStamp(const KeyStamp::Shape& shape, const QColor& color, const double& ratio)
{
    const double reach = (shape == KeyStamp::point ? pointSide : side) / 2.0 * ratio;
    const int middle = truncateToInt(std::ceil(reach));
    QImage stamp(2 * middle, 2 * middle, QImage::Format_ARGB32_Premultiplied);
    stamp.fill(Qt::transparent);
    QPainter painter(&stamp);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const QRectF box(middle - reach, middle - reach, 2.0 * reach, 2.0 * reach);
    if (shape == KeyStamp::disc) {
        painter.drawEllipse(box);
    } else {
        painter.drawRect(box);
    }
    return stamp;
}

} // namespace

const QImage& KeyStamp::of(const Shape& shape, const QColor& color, const double& ratio)
{
    using Key = std::pair<QRgb, std::pair<double, int>>;
    static thread_local QHash<Key, QImage> stamps;
    if (stamps.size() > mostStamps) {
        stamps.clear();
    }
    QImage& stamp = stamps[{color.rgba(), {ratio, shape}}];
    if (stamp.isNull()) {
        stamp = madeStamp(shape, color, ratio);
    }
    return stamp;
}
