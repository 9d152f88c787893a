#include "SkyPainter.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

SkyPainter::SkyPainter(const SceneState& sceneState, const SceneLight& sceneLight,
                       const QSizeF& size)
    : state(sceneState)
    , light(sceneLight)
    , width(size.width())
    , height(size.height() * horizon)
    , unit(std::min(size.width(), size.height()) / 100.0)
{}

void SkyPainter::draw(QPainter& painter) const
{
    QLinearGradient sky(0.0, 0.0, 0.0, height);
    sky.setColorAt(0.0, light.mix(0x070b20, 0x3b3a7a, 0x4a9fe0));
    sky.setColorAt(0.6, light.mix(0x131a3e, 0xb8628a, 0x9fd3f2));
    sky.setColorAt(1.0, light.mix(0x27305e, 0xffb067, 0xe6f4f5));
    painter.fillRect(QRectF(0.0, 0.0, width, height + 1.0), sky);
    drawStars(painter);
    drawMoon(painter);
    drawSun(painter);
    drawCoast(painter, 13.0, 0.3, light.mix(0x1b2350, 0x8d5480, 0x9cbfd2));
    drawCoast(painter, 8.0, 2.1, light.mix(0x111739, 0x5d3f6e, 0x6d9cae));
}

void SkyPainter::drawStars(QPainter& painter) const
{
    painter.setPen(Qt::NoPen);
    for (int star = 0; star < 70; ++star) {
        // Multiples of two irrational numbers spread evenly and are the same in each picture.
        const double x = std::fmod(star * 0.754877666, 1.0) * width;
        const double y = std::fmod(star * 0.569840291, 1.0) * height * 0.9;
        const double twinkle = 0.6 + 0.4 * std::sin(state.time * 2.0 + star * 1.7);
        const double radius = unit * (star % 5 == 0 ? 0.42 : 0.25);
        QColor color(Qt::white);
        color.setAlphaF(static_cast<float>(light.darkness() * twinkle));
        painter.setBrush(color);
        painter.drawEllipse(QPointF(x, y), radius, radius);
    }
}

void SkyPainter::drawMoon(QPainter& painter) const
{
    const double radius = unit * 5.0;
    const QPointF center(width * 0.2, height * (0.42 - 0.2 * light.darkness()));
    QPainterPath disc;
    disc.addEllipse(center, radius, radius);
    QPainterPath shadow;
    shadow.addEllipse(center + QPointF(radius * 0.55, -radius * 0.3), radius, radius);
    painter.setOpacity(light.darkness());
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xfdf3cf));
    painter.drawPath(disc.subtracted(shadow));
    painter.setOpacity(1.0);
}

void SkyPainter::drawSun(QPainter& painter) const
{
    const double radius = unit * 7.0;
    const QPointF center(width * 0.7, height - state.sun / 100.0 * height);
    const QColor color = light.mix(0xff6a3d, 0xffa14a, 0xfff3b8);

    painter.save();
    painter.setClipRect(QRectF(0.0, 0.0, width, height));
    painter.setPen(Qt::NoPen);
    QRadialGradient glow(center, radius * 6.0);
    QColor inner = color;
    inner.setAlphaF(0.55f);
    QColor outer = color;
    outer.setAlphaF(0.0f);
    glow.setColorAt(0.0, inner);
    glow.setColorAt(1.0, outer);
    painter.setBrush(glow);
    painter.drawEllipse(center, radius * 6.0, radius * 6.0);
    painter.setBrush(color);
    painter.drawEllipse(center, radius, radius);
    painter.restore();
}

void SkyPainter::drawCoast(QPainter& painter, double hillHeight, double shift,
                           const QColor& color) const
{
    QPainterPath coast(QPointF(0.0, height + 2.0));
    constexpr int steps = 80;
    for (int step = 0; step <= steps; ++step) {
        const double x = static_cast<double>(step) / steps;
        const double hill = 0.45 + 0.3 * std::sin(x * 5.3 + shift) +
                            0.15 * std::sin(x * 13.7 + shift) +
                            0.06 * std::sin(x * 31.0 + shift * 3.0);
        coast.lineTo(x * width, height - std::max(hill, 0.0) * hillHeight * unit);
    }
    coast.lineTo(width, height + 2.0);
    coast.closeSubpath();
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPath(coast);
}
