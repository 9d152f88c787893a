#pragma once

#include "canvas/CanvasGesture.h"
#include "canvas/GestureStage.h"

#include <Qt>

#include <functional>
#include <memory>

/// The gesture that is under way on a canvas, if any: a drag of keys, a rubber band, an edit, or a
/// drag of the view, which goes by the view's own flags.
class CanvasGestures
{
public:
    /// None is owned; all outlive the gestures. Without editor and host there are no gestures.
    CanvasGestures(CanvasFunctionBase& canvas, CurveEditor* editor, curve_editor::CanvasHost* host,
                   ViewPort* view);

    /// @name Begin
    /// @{
    /// A button was pressed at a point of the world, which forgets the gesture before it.
    void press(Qt::MouseButton with, const QPointF& world);
    /// Begins the command of a move from a point of the world.
    void beginMove(const QPointF& world);
    /// See KeyDrag and RubberBand.
    void beginKeyDrag(bool wholeKeys);
    void beginRubberBand(curve_editor::CanvasMode mode);
    /// An edit from its beginning to its end: `begin` makes the commands that `edit` becomes.
    void run(const std::function<void(PendingCommands&)>& begin, const std::function<void()>& edit);
    /// @}

    /// One step of a drag of keys, to a point of the world; nothing in any other mode.
    void step(const QPointF& world);

    /// @name End
    /// @{
    /// Ends what is running as its release would, in the present mode.
    void end();
    /// The same for a release that found the editor in these modes.
    void end(curve_editor::CanvasMode mode, curve_editor::CanvasMode userMode);
    /// Frees the commands that are open; keys and selection stay as they are.
    void cancel();
    /// @}

    /// @name What is under way
    /// @{
    /// A button of the mouse is held for it.
    bool isOfMouse() const;
    /// It has changed keys or selection in no step yet, or its rectangle would select.
    bool isOnKeys() const;
    /// Something is to be ended.
    bool isRunning() const;
    /// Another button than the one that is held for it.
    bool isSecondButton(Qt::MouseButton other) const;
    /// The button that is held for it is none of these: its release was lost.
    bool hasLostButton(Qt::MouseButtons held) const;
    /// Whether it goes on in this mode.
    bool admits(curve_editor::CanvasMode mode) const;
    /// Whether this command is one that it is handing to the history; asked of each once.
    bool isHandingOver(const curve_editor::CurveCommand* command);
    /// @}

    /// Those of the gesture under way. Without one, what an application opens by itself.
    PendingCommands& commands();
    const PendingCommands& commands() const;
    GestureStage stage;

private:
    template <class Gesture>
    std::shared_ptr<Gesture> start();
    bool isDraggingKeys() const;
    void forget();
    void leave();

    PendingCommands opened; ///< by an application, while no gesture is under way
    std::shared_ptr<CanvasGesture> running;
    Qt::MouseButton button = Qt::NoButton; ///< the one pressed last
    unsigned serial = 0;                   ///< another one for each gesture
};
