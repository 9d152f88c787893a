#include "SceneCurves.h"

#include "CurveStore.h"

const std::vector<SceneCurve>& sceneCurves()
{
    using S = SceneState;
    static const std::vector<SceneCurve> curves = {
        {"boat", "position x", 0xffff7a59, -30, 130, "boat-position-x.xml", &S::boatX},
        {"boat", "position y", 0xff4ecdc4, -20, 20, "boat-position-y.xml", &S::boatY},
        {"boat", "rotation", 0xffffd166, -30, 30, "boat-rotation.xml", &S::rotation},
        {"boat", "scale", 0xffb388ff, 40, 160, "boat-scale.xml", &S::scale},
        {"sail", "hue", 0xffff5fa2, 0, 100, "sail-hue.xml", &S::sailHue},
        {"lantern", "light", 0xffffe066, 0, 100, "lantern-light.xml", &S::lantern},
        {"sun", "height", 0xffffa62b, -30, 90, "sun-height.xml", &S::sun},
        {"sea", "swell", 0xff4d9de0, 0, 100, "sea-swell.xml", &S::swell},
        {"gull", "position x", 0xfff2f2f2, -40, 140, "gull-position-x.xml", &S::gullX},
        {"gull", "position y", 0xff9be564, 0, 100, "gull-position-y.xml", &S::gullY},
    };
    return curves;
}

SceneState sceneAt(const CurveStore& store, double time, double fps)
{
    SceneState state{};
    state.time = time;
    for (const SceneCurve& curve : sceneCurves()) {
        const QString name =
            QLatin1String(curve.node) + QLatin1Char('.') + QLatin1String(curve.name);
        state.*curve.field = store.value(name, time, fps);
    }
    return state;
}
