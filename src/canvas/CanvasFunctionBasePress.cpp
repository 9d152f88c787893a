// What a press of the mouse begins, by mode, button and what lies under the cursor.

#include "canvas/CanvasFunctionBase.h"

#include "canvas/CanvasGesture.h"
#include "curves/CurveType.h"
#include "editor/CurveEditor.h"
#include "graphs/MousePixel.h"

#include <QMouseEvent>

bool CanvasFunctionBase::press(QMouseEvent* event)
{
    using Mode = CurveEditor::curveEditorModes;
    if (ignoresPress(event->button())) {
        return true;
    }
    endLostGesture(event);
    endGestures();
    const Mode mode = editor->getCurrentMode();
    const QPoint pixel = mousePixel(event->position());
    const bool isLeft = event->button() == Qt::LeftButton;
    gesture->press(event->button(), worldAt(pixel));
    if (editing.isEmpty()) {
        return isLeft;
    }
    watchModifiers(event);
    if (mode == Mode::ZOOM) {
        editor->setCurrentMode(Mode::ZOOMING);
        return false;
    }

    bool manySelected = false;
    bool anySelected = false;
    bool hitUnselected = false;
    bool hitSelected = false;
    double spanMin = 0.0;
    double spanMax = 0.0;
    QList<PointInfo*> hits;
    const bool outside = hitKeys(pixel, manySelected, anySelected, hitUnselected, hitSelected,
                                 spanMin, spanMax, hits);
    const bool keyWasHit = hitSelected || hitUnselected;
    if (editingType() == expressionCurve) {
        return false;
    }
    if (event->button() == Qt::RightButton) {
        return pressRight(outside, hitUnselected, anySelected, hits);
    }

    switch (mode) {
    case Mode::ADD:
        if (editing.size() == 1) {
            addKey(editing.first(), gesture->lastWorld.x(), gesture->lastWorld.y());
        }
        return true;
    case Mode::ADD2SEL:
        return pressAddToSelection(outside, keyWasHit, hits);
    case Mode::DEL:
        if (isLeft && keyWasHit) {
            pressDelete(hits);
        }
        return true;
    case Mode::SELECT:
        gesture->beginRubberBand(Mode::SELECTING);
        return false;
    case Mode::MOVE:
        gesture->beginKeyDrag(!manySelected);
        return true;
    case Mode::DEFAULT:
        return pressDefault(event, outside, hitUnselected, manySelected, hits);
    case Mode::SELECTING:
    case Mode::MOVING:
    case Mode::ADDING2SEL:
    case Mode::SCALE:
    case Mode::SNAP:
        return true;
    default:
        return false;
    }
}

bool CanvasFunctionBase::pressRight(const bool& outside, const bool& hitUnselected,
                                    const bool& anySelected, const QList<PointInfo*>& hits)
{
    if (outside) {
        beginSelectCommand();
        clearSelection();
        commitSelectCommand();
    } else if (hitUnselected) {
        beginSelectCommand();
        selectHits(hits);
        commitSelectCommand();
    }
    showRightButtonMenu();
    return anySelected;
}

bool CanvasFunctionBase::pressDefault(QMouseEvent* event, const bool& outside,
                                      const bool& hitUnselected, const bool& manySelected,
                                      const QList<PointInfo*>& hits)
{
    const bool isLeft = event->button() == Qt::LeftButton;
    if (!isLeft && event->button() != Qt::MiddleButton) {
        return false;
    }
    if (outside) {
        if (isLeft) {
            gesture->beginRubberBand(CurveEditor::SELECTING);
        }
        return false;
    }
    if (hitUnselected) {
        beginSelectCommand();
        selectHits(hits);
        commitSelectCommand();
    }
    // manySelected speaks of the moment before this press, on purpose.
    gesture->beginKeyDrag(!manySelected);
    return true;
}

bool CanvasFunctionBase::pressAddToSelection(const bool& outside, const bool& keyWasHit,
                                             const QList<PointInfo*>& hits)
{
    if (keyWasHit) {
        beginSelectCommand();
        toggleHits(hits);
        commitSelectCommand();
        return true;
    }
    if (!outside) {
        return true;
    }
    gesture->beginRubberBand(CurveEditor::ADDING2SEL);
    return false;
}

void CanvasFunctionBase::pressDelete(const QList<PointInfo*>& hits)
{
    beginSelectCommand();
    clearSelection();
    toggleHits(hits);
    commitSelectCommand();
    deleteKeys();
}
