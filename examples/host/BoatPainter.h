#pragma once

#include "SceneCurves.h"
#include "SceneLight.h"

#include <QSizeF>

class QPainter;
class QPointF;

/// The boat with its sails and lantern, and the gull that follows it.
class BoatPainter
{
public:
    BoatPainter(const SceneState& sceneState, const SceneLight& sceneLight, const QSizeF& size);

    /// `waterLine` in pixels from the top.
    void drawBoat(QPainter& painter, double waterLine) const;
    void drawGull(QPainter& painter) const;

private:
    void drawSails(QPainter& painter) const;
    void drawHull(QPainter& painter) const;
    void drawLantern(QPainter& painter) const;

    const SceneState& state;
    const SceneLight& light;
    double width;
    double height;
    double unit; ///< a hundredth of the shorter side
};
