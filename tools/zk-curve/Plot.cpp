#include "Plot.h"

#include "core/ValueBounds.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPolygonF>

#include <cmath>

namespace {

constexpr double margin = 8.0;
const char* const curveColor = "#d03020";
const char* const frameColor = "#c0c0c0";

} // namespace

std::vector<std::vector<std::pair<double, double>>> Plot::lines() const
{
    ValueBounds bounds;
    for (const double value : values) {
        bounds.take(std::isfinite(value) ? value : std::nan(""));
    }
    const double rise = bounds.highest - bounds.lowest;
    const double run = times.back() - times.front();
    const double right = width - 2.0 * margin;
    const double down = height - 2.0 * margin;
    std::vector<std::vector<std::pair<double, double>>> found(1);
    for (std::size_t i = 0; i < times.size(); ++i) {
        if (!std::isfinite(values[i])) {
            found.emplace_back();
            continue;
        }
        const double x = run > 0.0 ? (times[i] - times.front()) / run : 0.5;
        const double y = rise > 0.0 ? (bounds.highest - values[i]) / rise : 0.5;
        found.back().emplace_back(margin + x * right, margin + y * down);
    }
    return found;
}

QByteArray Plot::svg() const
{
    QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
                      QByteArray::number(width) + "\" height=\"" + QByteArray::number(height) +
                      "\">\n<rect x=\"0.5\" y=\"0.5\" width=\"" + QByteArray::number(width - 1) +
                      "\" height=\"" + QByteArray::number(height - 1) +
                      "\" fill=\"#ffffff\" stroke=\"" + frameColor + "\"/>\n";
    for (const auto& line : lines()) {
        if (line.empty()) {
            continue;
        }
        text += "<polyline fill=\"none\" stroke=\"" + QByteArray(curveColor) +
                "\" stroke-width=\"1.5\" points=\"";
        for (const auto& [x, y] : line) {
            text += QByteArray::number(x, 'f', 2) + ',' + QByteArray::number(y, 'f', 2) + ' ';
        }
        text += "\"/>\n";
    }
    return text + "</svg>\n";
}

QByteArray Plot::png() const
{
    QImage picture(width, height, QImage::Format_RGB32);
    if (picture.isNull()) {
        return QByteArray();
    }
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setPen(QColor(frameColor));
    painter.drawRect(0, 0, width - 1, height - 1);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(curveColor), 1.5));
    for (const auto& line : lines()) {
        QPolygonF polygon;
        for (const auto& [x, y] : line) {
            polygon.append(QPointF(x, y));
        }
        painter.drawPolyline(polygon);
    }
    painter.end();
    QByteArray bytes;
    QBuffer device(&bytes);
    device.open(QIODevice::WriteOnly);
    return picture.save(&device, "PNG") ? bytes : QByteArray();
}
