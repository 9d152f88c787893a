#include "Stage.h"

#include "BoatPainter.h"
#include "SceneCurves.h"
#include "SeaPainter.h"
#include "SkyPainter.h"

#include <QPainter>

Stage::Stage(const CurveStore& curves, double framesPerSecond, QWidget* parent)
    : QWidget(parent)
    , store(curves)
    , fps(framesPerSecond)
{
    setMinimumSize(240, 200);
}

QSize Stage::sizeHint() const
{
    return {420, 560};
}

void Stage::setTime(double seconds)
{
    time = seconds;
    update();
}

void Stage::paintEvent(QPaintEvent* /*event*/)
{
    const SceneState state = sceneAt(store, time, fps);
    const SceneLight light(state.sun);
    const SkyPainter sky(state, light, size());
    const SeaPainter sea(state, light, size());
    const BoatPainter boat(state, light, size());

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    sky.draw(painter);
    sea.drawBehindBoat(painter);
    boat.drawGull(painter);
    boat.drawBoat(painter, sea.waterLine());
    sea.drawBeforeBoat(painter);
}
