#pragma once

#include "canvas/PendingCommands.h"

#include <QPointF>
#include <Qt>

class CanvasFunctionBase;
class CurveEditor;
class CurveNode;
class SplineCurveGraph;
class ViewPort;

/// What the mouse does on the canvas between a press and the end of it: a drag of keys, a rubber
/// band, or a drag of the view, which goes by the view's own flags.
///
/// A drag edits the keys live and becomes steps of the history at its end. The canvas ends it
/// before anything else is done to keys, selection, history, curves being edited or mode, so that
/// no two steps overlap.
class CanvasGesture
{
public:
    /// None is owned; all outlive the gesture. Without an editor there are no gestures.
    CanvasGesture(CanvasFunctionBase& canvasLogic, CurveEditor* curveEditor, ViewPort* viewPort);

    /// @name Begin
    /// @{
    /// A button was pressed at a point of the world, which forgets the gesture before it.
    void press(const Qt::MouseButton& with, const QPointF& world);
    /// Begins the command of a move from a point of the world.
    void beginMove(const QPointF& world);
    /// The selected keys follow the mouse; with `wholeKeys` their handles may, too.
    void beginKeyDrag(const bool& wholeKeys);
    /// A rectangle in one of the two modes that select by one.
    void beginRubberBand(const int& mode);
    /// @}

    /// One step of a drag of keys, to a point of the world; nothing in any other mode.
    void step(const QPointF& world);

    /// @name End
    /// @{
    /// Ends what is running as its release would, in the present mode.
    void end();
    /// The same for a release that found the editor in these modes.
    void end(const int& mode, const int& userMode);
    /// @}

    /// A button of the mouse is held for it.
    bool isOfMouse() const;
    /// It has changed keys or selection in no step yet, or its rectangle would select.
    bool isOnKeys() const;
    /// Something is to be ended.
    bool isRunning() const;
    /// Another button than the one that is held for it.
    bool isSecondButton(const Qt::MouseButton& other) const;
    /// The button that is held for it is none of these: its release was lost.
    bool hasLostButton(const Qt::MouseButtons& held) const;
    /// Whether it goes on in this mode.
    bool admits(const int& mode) const;

    PendingCommands commands;
    /// Of the world: the press, then the last step.
    QPointF lastWorld;
    bool showMark = false; ///< the snap cross-hair is drawn

private:
    bool isDraggingKeys() const;
    QPointF targetOf(const QPointF& world) const;
    void dragSelection(SplineCurveGraph* graph, const bool& many, const QPointF& raw,
                       const QPointF& target, const QPointF& way);
    void reportDrag(CurveNode* curve);
    void forget();

    CanvasFunctionBase& canvas;
    CurveEditor* editor;
    ViewPort* view;
    Qt::MouseButton button = Qt::NoButton; ///< the one pressed last
    QPointF startWorld;                    ///< where a move began
    bool rubberSelect = false;             ///< a rectangle was begun that selects
    bool dragging = false;                 ///< keys are being dragged
    unsigned serial = 0;                   ///< another one for each gesture
};
