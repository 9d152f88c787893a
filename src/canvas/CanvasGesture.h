#pragma once

#include "canvas/CanvasMode.h"
#include "canvas/PendingCommands.h"

#include <QPointF>

struct GestureStage;

/// What happens on the canvas between a beginning and an end, and the commands that it becomes. As
/// it stands here it is an edit that nobody holds a button for.
///
/// Whoever begins one hands it to CanvasGestures, which ends it before anything else is done to
/// keys, selection, history, curves being edited or mode, so that no two steps overlap.
class CanvasGesture
{
public:
    /// The stage, which is not owned, outlives the gesture. Commands that are open pass to it.
    CanvasGesture(GestureStage& gestureStage, PendingCommands&& open);
    CanvasGesture(const CanvasGesture&) = delete;
    CanvasGesture& operator=(const CanvasGesture&) = delete;
    /// As cancel.
    virtual ~CanvasGesture();

    /// The mouse has moved to a point of the world.
    virtual void step(const QPointF& world);
    /// Hands the commands to the history, in the mode that the end has found. Whoever hears of
    /// them may end this gesture once more, and begin another.
    virtual void end(curve_editor::CanvasMode mode);
    /// Frees the commands; keys and selection stay as they are.
    void cancel();

    /// A button is held for it.
    virtual bool isOfMouse() const;
    /// It goes on in this mode.
    virtual bool admits(curve_editor::CanvasMode mode) const;

    PendingCommands commands;

protected:
    GestureStage& stage;
};
