#pragma once

#include "SceneCurves.h"
#include "SceneLight.h"

#include <QSizeF>

class QPainter;

/// The waves, in layers behind and before the boat.
class SeaPainter
{
public:
    SeaPainter(const SceneState& sceneState, const SceneLight& sceneLight, const QSizeF& size);

    void drawBehindBoat(QPainter& painter) const;
    void drawBeforeBoat(QPainter& painter) const;

    /// Where the water stands at the boat, in pixels from the top.
    double waterLine() const;

private:
    double waveAt(int layer, double x) const;
    void drawLayer(QPainter& painter, int layer) const;
    void drawGlitter(QPainter& painter) const;

    const SceneState& state;
    const SceneLight& light;
    double width;
    double height;
    double unit; ///< a hundredth of the shorter side
};
