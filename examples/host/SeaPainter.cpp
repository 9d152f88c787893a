#include "SeaPainter.h"

#include "SkyPainter.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct Layer
{
    double top;    ///< share of the sea's height
    double height; ///< of its waves at a swell of 100 percent, in units
    double length; ///< of its waves, in units
    double speed;  ///< radians per second
    QRgb night;
    QRgb dusk;
    QRgb noon;
};

constexpr std::array<Layer, 5> layers = {{
    {0.05, 3.0, 26.0, 0.7, 0xff1a2452, 0xffa0607c, 0xff6fb6cf},
    {0.20, 5.0, 38.0, 1.0, 0xff141c46, 0xff74506f, 0xff4a9cc0},
    {0.40, 8.0, 52.0, 1.3, 0xff0f1638, 0xff503f66, 0xff2f82ae},
    {0.47, 8.0, 52.0, 1.3, 0xff0d1330, 0xff463a60, 0xff2a79a6},
    {0.68, 11.0, 70.0, 1.7, 0xff0a102b, 0xff352f55, 0xff1f6796},
}};
constexpr int boatLayer = 2; ///< the boat swims before this layer

} // namespace

SeaPainter::SeaPainter(const SceneState& sceneState, const SceneLight& sceneLight,
                       const QSizeF& size)
    : state(sceneState)
    , light(sceneLight)
    , width(size.width())
    , height(size.height())
    , unit(std::min(size.width(), size.height()) / 100.0)
{}

void SeaPainter::drawBehindBoat(QPainter& painter) const
{
    const double horizon = SkyPainter::horizon * height;
    QLinearGradient water(0.0, horizon, 0.0, height);
    water.setColorAt(0.0, light.mix(0x26306a, 0xe09a72, 0xa4d8e2));
    water.setColorAt(1.0, light.mix(0x0a102b, 0x352f55, 0x1f6796));
    painter.fillRect(QRectF(0.0, horizon, width, height - horizon), water);
    for (int layer = 0; layer < boatLayer; ++layer) {
        drawLayer(painter, layer);
        if (layer == 0) {
            drawGlitter(painter);
        }
    }
    drawLayer(painter, boatLayer);
}

void SeaPainter::drawBeforeBoat(QPainter& painter) const
{
    for (int layer = boatLayer + 1; layer < static_cast<int>(layers.size()); ++layer) {
        drawLayer(painter, layer);
    }
}

double SeaPainter::waterLine() const
{
    return waveAt(boatLayer, state.boatX / 100.0 * width);
}

double SeaPainter::waveAt(int layer, double x) const
{
    const Layer& row = layers.at(static_cast<std::size_t>(layer));
    const double horizon = SkyPainter::horizon * height;
    const double phase = x / (row.length * unit) * 6.2831853 - state.time * row.speed;
    const double wave = std::sin(phase) + 0.35 * std::sin(phase * 2.3 + layer);
    return horizon + row.top * (height - horizon) - wave * row.height * unit * state.swell / 100.0;
}

void SeaPainter::drawLayer(QPainter& painter, int layer) const
{
    // The outline's sides and bottom stay out of the picture.
    const double margin = 2.0 * unit;
    QPainterPath water(QPointF(-margin, height + margin));
    constexpr int steps = 120;
    for (int step = 0; step <= steps; ++step) {
        const double x = (width + 2.0 * margin) * step / steps - margin;
        water.lineTo(x, waveAt(layer, x));
    }
    water.lineTo(width + margin, height + margin);
    water.closeSubpath();

    const Layer& row = layers.at(static_cast<std::size_t>(layer));
    const QColor color = light.mix(row.night, row.dusk, row.noon);
    painter.setPen(QPen(color.lighter(118), unit * 0.5));
    painter.setBrush(color);
    painter.drawPath(water);
}

/// The path of light beneath the sun.
void SeaPainter::drawGlitter(QPainter& painter) const
{
    const double horizon = SkyPainter::horizon * height;
    const double strength = std::clamp((state.sun + 12.0) / 30.0, 0.0, 1.0);
    for (int row = 0; row < 16; ++row) {
        const double y = horizon + unit * (1.0 + row * 0.95);
        const double half =
            unit * (3.0 + row * 0.45) * (0.7 + 0.3 * std::sin(state.time * 3.0 + row * 1.9));
        QColor color = light.mix(0xff8a5c, 0xffc27a, 0xfffbe0);
        color.setAlphaF(static_cast<float>(strength * (0.8 - row * 0.045)));
        painter.setPen(QPen(color, unit * 0.55, Qt::SolidLine, Qt::RoundCap));
        const double shift = unit * std::sin(row * 2.4 + state.time);
        painter.drawLine(QPointF(width * 0.7 - half + shift, y),
                         QPointF(width * 0.7 + half + shift, y));
    }
}
