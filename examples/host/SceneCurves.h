#pragma once

#include <QRgb>

#include <vector>

class CurveStore;

/// What the stage shows at one moment.
struct SceneState
{
    double time;     ///< seconds
    double boatX;    ///< percent of the stage's width
    double boatY;    ///< percent of the stage's height above the water
    double rotation; ///< degrees, the bow up
    double scale;    ///< percent
    double sailHue;  ///< percent of the colour circle
    double lantern;  ///< percent; 0 is off
    double sun;      ///< percent of the sky's height above the horizon; negative at night
    double swell;    ///< height of the waves, percent
    double gullX;    ///< percent of the stage's width
    double gullY;    ///< percent of the sky's height above the horizon
};

/// The row of a curve of the scene: its names, how the editor draws it, its limits and its file.
struct SceneCurve
{
    const char* node;
    const char* name;
    QRgb color;
    float minimum;
    float maximum;
    const char* file;
    double SceneState::*field; ///< what of the stage it moves
};

/// In the order in which they must be added: an expression can read only curves that the editor
/// knows by then.
const std::vector<SceneCurve>& sceneCurves();

/// Evaluates all of them at a time in seconds.
SceneState sceneAt(const CurveStore& store, double time, double fps);
