#pragma once

#include "canvas/CanvasMode.h"

#include <QList>
#include <Qt>

class CanvasFunctionBase;
class CanvasGestures;
class QPoint;
struct PointInfo;

/// A press of the mouse and what lies under it, from which it follows what the press begins.
class CanvasPress
{
public:
    /// None is owned. `pressedButton` is the left, the middle or the right one.
    CanvasPress(CanvasFunctionBase& canvasLogic, CanvasGestures& canvasGestures,
                Qt::MouseButton pressedButton, const QPoint& pixel);

    /// Does what a press in this mode does. Returns whether it was consumed: if not, the view
    /// begins a drag of its own. The canvas may have been deleted by then: see byRightButton.
    bool doIn(curve_editor::CanvasMode mode);

private:
    bool byRightButton();
    bool addKey();
    bool atRest();
    bool addToSelection();
    bool deleteKey();
    bool drag();
    bool band(curve_editor::CanvasMode mode);
    void selectHits();

    CanvasFunctionBase& canvas;
    CanvasGestures& gestures;
    Qt::MouseButton button;
    QList<PointInfo*> hits; ///< a key or null for each curve being edited
    // All but the hits speak of the moment before the press.
    bool manySelected = false;
    bool anySelected = false;
    bool hitUnselected = false;
    bool hitSelected = false;
    bool outside = false; ///< on no key, and at no time between selected ones
};
