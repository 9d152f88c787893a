#include "canvas/CanvasFunctionBase.h"

#include "canvas/FunctionEditor.h"
#include "canvas/MousePixel.h"
#include "commands/CommandAddPoint.h"
#include "curves/CurveNode.h"
#include "curves/CurveType.h"
#include "editor/CurveEditor.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

bool CanvasFunctionBase::carriesModifiers(const QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

bool CanvasFunctionBase::event(QEvent* event)
{
    if (carriesModifiers(event)) {
        watchModifiers(static_cast<QInputEvent*>(event));
    }
    return QObject::event(event);
}

void CanvasFunctionBase::watchModifiers(QInputEvent* event)
{
    using Mode = CurveEditor::curveEditorModes;
    const Mode mode = editor->getCurrentMode();
    const Mode user = editor->getUserMode();

    // The first row that fits decides. One key may zoom and snap: at rest it zooms, during a drag
    // it snaps.
    if (mode == Mode::ZOOMING) {
        editor->setCurrentMode(editor->isZoomPressed(event) ? Mode::ZOOM : user);
    } else if (mode == user && editor->isZoomPressed(event)) {
        editor->setCurrentMode(Mode::ZOOM);
    } else if (mode == Mode::ZOOM) {
        editor->setCurrentMode(editor->isZoomPressed(event) ? Mode::ZOOM : user);
    } else if (mode == Mode::MOVING || mode == Mode::SNAP) {
        editor->setCurrentMode(editor->isSnapPressed(event) ? Mode::SNAP : Mode::MOVING);
    } else if (mode == Mode::DEFAULT && editor->isAddPressed(event)) {
        editor->setCurrentMode(Mode::ADD);
    } else if (mode == Mode::ADD) {
        editor->setCurrentMode(editor->isAddPressed(event) ? Mode::ADD : user);
    } else if ((mode == Mode::DEFAULT || mode == Mode::SELECT) && editor->isAdd2selPressed(event)) {
        editor->setCurrentMode(Mode::ADD2SEL);
    } else if (mode == Mode::ADD2SEL) {
        editor->setCurrentMode(editor->isAdd2selPressed(event) ? Mode::ADD2SEL : user);
    } else if (mode == Mode::SELECTING || mode == Mode::ADDING2SEL) {
        editor->setCurrentMode(editor->isAdd2selPressed(event) ? Mode::ADDING2SEL
                                                               : Mode::SELECTING);
    }
}

bool CanvasFunctionBase::press(QMouseEvent* event)
{
    using Mode = CurveEditor::curveEditorModes;
    const Mode mode = editor->getCurrentMode();
    const QPoint pixel = mousePixel(event->position());
    const bool isLeft = event->button() == Qt::LeftButton;
    worldAt(pixel, lastWorldX, lastWorldY);

    if (!isLeft && (pendingMove || pendingSelect)) {
        return true;
    }
    dropPendingCommands();
    rubberSelect = false;
    dragging = false;
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
            addKey(editing.first(), lastWorldX, lastWorldY);
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
        beginRubberSelection(Mode::SELECTING);
        return false;
    case Mode::MOVE:
        startMove(pixel, manySelected);
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
            beginRubberSelection(CurveEditor::SELECTING);
        }
        return false;
    }
    if (hitUnselected) {
        beginSelectCommand();
        selectHits(hits);
        commitSelectCommand();
    }
    // manySelected speaks of the moment before this press, on purpose.
    startMove(mousePixel(event->position()), manySelected);
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
    beginRubberSelection(CurveEditor::ADDING2SEL);
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

void CanvasFunctionBase::beginRubberSelection(const int& mode)
{
    beginSelectCommand();
    rubberSelect = true;
    editor->setCurrentMode(static_cast<CurveEditor::curveEditorModes>(mode));
}

void CanvasFunctionBase::startMove(const QPoint& pixel, const bool& manySelected)
{
    beginMove(pixel);
    if (!manySelected) {
        beginChangeCommand();
    }
    editor->setCurrentMode(CurveEditor::MOVING);
    dragging = true;
}

void CanvasFunctionBase::release(QMouseEvent* event)
{
    using Mode = CurveEditor::curveEditorModes;
    const Mode mode = editor->getCurrentMode();
    const Mode user = editor->getUserMode();
    watchModifiers(event);

    if (mode == Mode::ZOOMING) {
        // Alt itself is meant, whatever the zoom modifier is.
        editor->setCurrentMode(event->modifiers().testFlag(Qt::AltModifier) ? Mode::ZOOM : user);
        return;
    }
    if (event->button() != Qt::LeftButton && event->button() != Qt::MiddleButton) {
        return;
    }
    view->showLabels = toolTipsOn;
    if (editing.isEmpty() || editingType() == expressionCurve) {
        view->rectActive = false;
        view->rectValid = false;
        rubberSelect = false;
        dragging = false;
        editor->setCurrentMode(user);
        return;
    }

    const bool isRubber = mode == Mode::SELECTING || mode == Mode::ADDING2SEL;
    const bool isMove = mode == Mode::MOVING || mode == Mode::SNAP;
    if (isRubber) {
        beginSelectCommand();
        selectInRect(mode == Mode::ADDING2SEL);
        commitSelectCommand();
    } else if (isMove) {
        commitMoveCommand();
        commitChangeCommand();
        showMark = false;
    }
    if (isRubber || isMove) {
        editor->setCurrentMode(mode == Mode::ADDING2SEL ? Mode::ADD2SEL : user);
    }
    dropPendingCommands();
    rubberSelect = false;
    dragging = false;
}

void CanvasFunctionBase::doubleClick(QMouseEvent* event)
{
    const CurveEditor::curveEditorModes mode = editor->getCurrentMode();
    const bool canAdd = mode == CurveEditor::DEFAULT || mode == CurveEditor::ADD;
    if (editingType() == expressionCurve || !canAdd || editing.size() != 1) {
        return;
    }
    double time = 0.0;
    double value = 0.0;
    worldAt(mousePixel(event->position()), time, value);
    addKey(editing.first(), time, value);
}

void CanvasFunctionBase::addKey(CurveNode* curve, const double& x, const double& y)
{
    if (!curve) {
        return;
    }
    CurveEditor::NodeStruct* record = editor->searchAllNodeList(curve->dotName());
    if (record) {
        editor->getCmdManager()->doCommand(new curve_editor::CommandAddPoint(editor, record, x, y));
    }
}

void CanvasFunctionBase::createNodeAtCursor(CurveNode* curve)
{
    if (curve && editing.size() == 1 && hasKeys(editingType()) &&
        editing.first()->dotName() == curve->dotName()) {
        addKey(curve, lastWorldX, lastWorldY);
    }
}

void CanvasFunctionBase::keyPress(QKeyEvent* event)
{
    watchModifiers(event);
    const bool onlyControl = event->modifiers() == Qt::ControlModifier;
    switch (event->key()) {
    case Qt::Key_Z:
        if (onlyControl) {
            emit editor->curveEditorUndo();
        }
        break;
    case Qt::Key_Y:
        if (onlyControl) {
            emit editor->curveEditorRedo();
        }
        break;
    case Qt::Key_Delete:
        deleteKeys();
        break;
    case Qt::Key_Right:
        walkSelection(true);
        break;
    case Qt::Key_Left:
        walkSelection(false);
        break;
    default:
        break;
    }
}

void CanvasFunctionBase::showRightButtonMenu()
{
    QMenu* const menu = editor->keysMenu();
    editor->refreshEditor();
    if (!menu->isVisible()) {
        menu->exec(QCursor::pos()); // a second loop of the same menu would never let the first end
    }
}

void CanvasFunctionBase::currentNodeHasChanged()
{
    if (!editing.isEmpty()) {
        editor->emitSignalCurvesHaveChanged();
        updateCanvas();
    }
}

void CanvasFunctionBase::hideMark()
{
    showMark = false;
}

void CanvasFunctionBase::worldAt(const QPoint& pixel, double& time, double& value) const
{
    time = view->timeAt(pixel.x());
    value = view->valueAt(pixel.y());
}
