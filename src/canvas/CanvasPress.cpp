// What a press of the mouse begins, by button, mode and what lies under the cursor.

#include "canvas/CanvasPress.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasGestures.h"

using curve_editor::CanvasMode;

CanvasPress::CanvasPress(CanvasFunctionBase& canvasLogic, CanvasGestures& canvasGestures,
                         Qt::MouseButton pressedButton, const QPoint& pixel)
    : canvas(canvasLogic)
    , gestures(canvasGestures)
    , button(pressedButton)
{
    double spanMin = 0.0;
    double spanMax = 0.0;
    outside = canvas.hitKeys(pixel, manySelected, anySelected, hitUnselected, hitSelected, spanMin,
                             spanMax, hits);
}

bool CanvasPress::doIn(CanvasMode mode)
{
    if (button == Qt::RightButton) {
        return byRightButton();
    }
    switch (mode) {
    case CanvasMode::DEFAULT:
        return atRest();
    case CanvasMode::SELECT:
        return band(CanvasMode::SELECTING);
    case CanvasMode::MOVE:
        return drag();
    case CanvasMode::ADD:
        return addKey();
    case CanvasMode::ADD2SEL:
        return addToSelection();
    case CanvasMode::DEL:
        return deleteKey();
    case CanvasMode::SELECTING:
    case CanvasMode::MOVING:
    case CanvasMode::ADDING2SEL:
    case CanvasMode::SCALE:
    case CanvasMode::SNAP:
        return true;
    default:
        return false;
    }
}

/// While the menu is open the application may delete the editor.
bool CanvasPress::byRightButton()
{
    if (outside) {
        canvas.changeSelection([this] { canvas.clearSelection(); });
    } else if (hitUnselected) {
        selectHits();
    }
    canvas.showRightButtonMenu();
    return anySelected;
}

bool CanvasPress::addKey()
{
    const QList<CurveNode*> curves = canvas.editingCurves();
    if (curves.size() == 1) {
        const QPointF world = gestures.stage.lastWorld;
        canvas.addKey(curves.first(), world.x(), world.y());
    }
    return true;
}

bool CanvasPress::atRest()
{
    if (outside) {
        return button == Qt::LeftButton && band(CanvasMode::SELECTING);
    }
    if (hitUnselected) {
        selectHits();
    }
    return drag();
}

bool CanvasPress::addToSelection()
{
    if (hitSelected || hitUnselected) {
        canvas.changeSelection([this] { canvas.toggleHits(hits); });
        return true;
    }
    return !outside || band(CanvasMode::ADDING2SEL);
}

bool CanvasPress::deleteKey()
{
    if (button == Qt::LeftButton && (hitSelected || hitUnselected)) {
        canvas.changeSelection([this] {
            canvas.clearSelection();
            canvas.toggleHits(hits);
        });
        canvas.deleteKeys();
    }
    return true;
}

bool CanvasPress::drag()
{
    gestures.beginKeyDrag(!manySelected);
    return true;
}

/// The view draws the rectangle.
bool CanvasPress::band(CanvasMode mode)
{
    gestures.beginRubberBand(mode);
    return false;
}

void CanvasPress::selectHits()
{
    canvas.changeSelection([this] { canvas.selectHits(hits); });
}
