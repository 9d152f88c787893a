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
