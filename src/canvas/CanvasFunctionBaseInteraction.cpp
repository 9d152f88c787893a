#include "canvas/CanvasFunctionBase.h"

#include "canvas/CanvasGesture.h"
#include "canvas/FunctionEditor.h"
#include "commands/CommandAddPoint.h"
#include "curves/CurveNode.h"
#include "curves/CurveType.h"
#include "editor/CurveEditor.h"
#include "graphs/MousePixel.h"

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

void CanvasFunctionBase::doubleClick(QMouseEvent* event)
{
    const CurveEditor::curveEditorModes mode = editor->getCurrentMode();
    const bool canAdd = mode == CurveEditor::DEFAULT || mode == CurveEditor::ADD;
    if (editingType() == expressionCurve || !canAdd || editing.size() != 1) {
        return;
    }
    const QPointF world = worldAt(mousePixel(event->position()));
    addKey(editing.first(), world.x(), world.y());
}

void CanvasFunctionBase::addKey(CurveNode* curve, const double& x, const double& y)
{
    if (!curve) {
        return;
    }
    const QString name = curve->dotName();
    endGestures();
    CurveEditor::NodeStruct* record = editor->searchAllNodeList(name);
    if (record) {
        editor->getCmdManager()->doCommand(new curve_editor::CommandAddPoint(editor, record, x, y));
    }
}

void CanvasFunctionBase::createNodeAtCursor(CurveNode* curve)
{
    if (curve && editing.size() == 1 && hasKeys(editingType()) &&
        editing.first()->dotName() == curve->dotName()) {
        addKey(curve, gesture->lastWorld.x(), gesture->lastWorld.y());
    }
}

void CanvasFunctionBase::keyPress(QKeyEvent* event)
{
    watchModifiers(event);
    const bool onlyControl = event->modifiers() == Qt::ControlModifier;
    switch (event->key()) {
    case Qt::Key_Z:
        if (onlyControl) {
            editor->undo();
        }
        break;
    case Qt::Key_Y:
        if (onlyControl) {
            editor->redo();
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
    gesture->showMark = false;
}
