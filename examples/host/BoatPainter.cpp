#include "BoatPainter.h"

#include "SkyPainter.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

BoatPainter::BoatPainter(const SceneState& sceneState, const SceneLight& sceneLight,
                         const QSizeF& size)
    : state(sceneState)
    , light(sceneLight)
    , width(size.width())
    , height(size.height())
    , unit(std::min(size.width(), size.height()) / 100.0)
{}

// The boat is drawn in units around the middle of its water line, the bow to the right, y upward.

void BoatPainter::drawBoat(QPainter& painter, double waterLine) const
{
    painter.save();
    painter.translate(state.boatX / 100.0 * width, waterLine - state.boatY / 100.0 * height);
    painter.rotate(-state.rotation);
    painter.scale(unit * state.scale / 100.0, -unit * state.scale / 100.0);
    drawSails(painter);
    drawHull(painter);
    drawLantern(painter);
    painter.restore();
}

void BoatPainter::drawSails(QPainter& painter) const
{
    const auto hue = static_cast<float>(std::fmod(state.sailHue / 100.0, 1.0));
    const QColor sail =
        blend(QColor::fromHsvF(hue, 0.66f, 0.96f), QColor(0x1a2148), light.darkness() * 0.55);

    painter.setPen(QPen(light.mix(0x2c2230, 0x5b3a33, 0x7a5236), 1.1, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(1.0, 4.0), QPointF(1.0, 44.0));

    painter.setPen(Qt::NoPen);
    QPainterPath mainSail(QPointF(-0.3, 42.0));
    mainSail.cubicTo(-9.0, 30.0, -15.0, 18.0, -16.0, 9.5);
    mainSail.quadTo(-8.0, 7.0, -0.3, 9.0);
    mainSail.closeSubpath();
    painter.setBrush(sail);
    painter.drawPath(mainSail);

    QPainterPath jib(QPointF(2.2, 38.0));
    jib.cubicTo(9.0, 28.0, 14.0, 18.0, 17.5, 8.0);
    jib.quadTo(10.0, 6.5, 2.2, 9.0);
    jib.closeSubpath();
    painter.setBrush(sail.lighter(122));
    painter.drawPath(jib);

    const double flutter = std::sin(state.time * 7.0);
    QPainterPath pennant(QPointF(1.0, 44.5));
    pennant.quadTo(-2.5, 45.5 + flutter, -7.0, 43.0 - flutter);
    pennant.quadTo(-3.0, 42.0 + flutter, 1.0, 41.5);
    pennant.closeSubpath();
    painter.setBrush(sail.darker(130));
    painter.drawPath(pennant);
}

void BoatPainter::drawHull(QPainter& painter) const
{
    QPainterPath hull(QPointF(-18.0, 5.5));
    hull.quadTo(2.0, 3.0, 22.0, 7.5);
    hull.cubicTo(18.0, -1.0, 12.0, -5.0, 6.0, -5.0);
    hull.lineTo(-10.0, -5.0);
    hull.cubicTo(-15.0, -4.5, -17.0, 0.0, -18.0, 5.5);
    painter.setBrush(light.mix(0x30233a, 0x6d3b3a, 0x9a5433));
    painter.drawPath(hull);

    // Everything between the rail and the stripe below it.
    QPainterPath band(QPointF(-18.0, 5.5));
    band.quadTo(2.0, 3.0, 22.0, 7.5);
    band.lineTo(21.0, 5.6);
    band.quadTo(2.0, 1.2, -17.7, 3.6);
    band.closeSubpath();
    painter.setBrush(light.mix(0x77708f, 0xf2d3b0, 0xfff4df));
    painter.drawPath(band);
}

void BoatPainter::drawLantern(QPainter& painter) const
{
    const QPointF lamp(-16.0, 13.0);
    painter.setPen(QPen(light.mix(0x2c2230, 0x5b3a33, 0x7a5236), 0.7, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(-16.0, 4.5), QPointF(-16.0, 11.5));
    painter.setPen(Qt::NoPen);

    const double shine = state.lantern / 100.0;
    if (shine > 0.0) {
        QRadialGradient glow(lamp, 24.0);
        glow.setColorAt(0.0, QColor(255, 222, 130, 200));
        glow.setColorAt(0.25, QColor(255, 200, 100, 90));
        glow.setColorAt(1.0, QColor(255, 190, 90, 0));
        painter.setOpacity(shine);
        painter.setBrush(glow);
        painter.drawEllipse(lamp, 24.0, 24.0);
        painter.setOpacity(1.0);
    }
    painter.setBrush(blend(QColor(0x574a58), QColor(0xffe9a8), shine));
    painter.drawRoundedRect(QRectF(lamp.x() - 1.3, lamp.y() - 1.7, 2.6, 3.4), 0.8, 0.8);
}

void BoatPainter::drawGull(QPainter& painter) const
{
    const double horizon = SkyPainter::horizon * height;
    const double flap = std::sin(state.time * 5.0);
    painter.save();
    painter.translate(state.gullX / 100.0 * width, horizon - state.gullY / 100.0 * horizon);
    painter.scale(unit, unit);
    QPainterPath wings(QPointF(-6.5, -1.5 - 1.6 * flap));
    wings.quadTo(-3.0, -3.6 + flap, 0.0, 0.0);
    wings.quadTo(3.0, -3.6 + flap, 6.5, -1.5 - 1.6 * flap);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(light.mix(0xaab2d8, 0x3c2b4c, 0x2f4858), 0.9, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    painter.drawPath(wings);
    painter.restore();
}
