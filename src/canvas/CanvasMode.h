#pragma once

namespace curve_editor {

/// What a mouse gesture on the canvas does. The values are those of CurveEditor::curveEditorModes,
/// which this stands for beneath the dialog.
enum class CanvasMode : int
{
    DEFAULT = 0,
    SELECT = 1,
    SELECTING = 2,
    MOVE = 3,
    MOVING = 4,
    ADD = 5,
    DEL = 6,
    ADD2SEL = 7,
    ADDING2SEL = 8,
    ZOOM = 9,
    ZOOMING = 10,
    SCALE = 11,
    SNAP = 12
};

/// Keys are being dragged.
constexpr bool isMoveMode(CanvasMode mode)
{
    return mode == CanvasMode::MOVING || mode == CanvasMode::SNAP;
}

/// A rectangle that selects keys is being dragged.
constexpr bool isRubberMode(CanvasMode mode)
{
    return mode == CanvasMode::SELECTING || mode == CanvasMode::ADDING2SEL;
}

} // namespace curve_editor
