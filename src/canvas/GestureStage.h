#pragma once

#include <QPointF>

class CanvasFunctionBase;
class ViewPort;

namespace curve_editor {
class CanvasHost;
} // namespace curve_editor

/// What the gestures of a canvas work on, and what each leaves to the next.
struct GestureStage
{
    CanvasFunctionBase& canvas;
    curve_editor::CanvasHost* host; ///< not owned; null without an editor
    ViewPort* view;                 ///< not owned

    QPointF lastWorld{};   ///< of the world: the press, then the last step
    QPointF startWorld{};  ///< where a move began
    bool showMark = false; ///< the snap cross-hair is drawn

    /// Curves with keys are being edited.
    bool hasKeysToEdit() const;
};
