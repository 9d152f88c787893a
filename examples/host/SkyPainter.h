#pragma once

#include "SceneCurves.h"
#include "SceneLight.h"

#include <QPointF>
#include <QSizeF>

class QPainter;

/// Sky, stars, moon, sun and the far coast.
class SkyPainter
{
public:
    SkyPainter(const SceneState& sceneState, const SceneLight& sceneLight, const QSizeF& size);

    void draw(QPainter& painter) const;

    /// The share of the stage's height that is sky.
    static constexpr double horizon = 0.62;

private:
    void drawStars(QPainter& painter) const;
    void drawMoon(QPainter& painter) const;
    void drawSun(QPainter& painter) const;
    void drawCoast(QPainter& painter, double height, double shift, const QColor& color) const;

    const SceneState& state;
    const SceneLight& light;
    double width;
    double height;
    double unit; ///< a hundredth of the shorter side
};
