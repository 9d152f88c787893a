// Modifiers, the keyboard, double clicks and the context menu.

#include "canvas/CanvasFunctionBase.h"

#include "canvas/CanvasGestures.h"
#include "canvas/CanvasHost.h"
#include "canvas/ModeControl.h"
#include "commands/CommandAddPoint.h"
#include "commands/CurveCommandsManager.h"
#include "curves/CurveNode.h"
#include "files/CurveType.h"
#include "graphs/MousePixel.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

using curve_editor::CanvasMode;
using curve_editor::ModeControl;
using curve_editor::ModifierRole;

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
    using Mode = CanvasMode;
    ModeControl& modes = host->modes();
    const Mode mode = modes.mode();
    const Mode user = modes.userMode();
    const bool zooms = modes.isPressed(ModifierRole::zoom, event);
    const bool snaps = modes.isPressed(ModifierRole::snap, event);
    const bool adds = modes.isPressed(ModifierRole::add, event);
    const bool addsToSelection = modes.isPressed(ModifierRole::addToSelection, event);

    // The first row that fits decides. One key may zoom and snap: at rest it zooms, during a drag
    // it snaps.
    if (mode == Mode::ZOOMING) {
        modes.setMode(zooms ? Mode::ZOOM : user);
    } else if (mode == user && zooms) {
        modes.setMode(Mode::ZOOM);
    } else if (mode == Mode::ZOOM) {
        modes.setMode(zooms ? Mode::ZOOM : user);
    } else if (isMoveMode(mode)) {
        modes.setMode(snaps ? Mode::SNAP : Mode::MOVING);
    } else if (mode == Mode::DEFAULT && adds) {
        modes.setMode(Mode::ADD);
    } else if (mode == Mode::ADD) {
        modes.setMode(adds ? Mode::ADD : user);
    } else if ((mode == Mode::DEFAULT || mode == Mode::SELECT) && addsToSelection) {
        modes.setMode(Mode::ADD2SEL);
    } else if (mode == Mode::ADD2SEL) {
        modes.setMode(addsToSelection ? Mode::ADD2SEL : user);
    } else if (isRubberMode(mode)) {
        modes.setMode(addsToSelection ? Mode::ADDING2SEL : Mode::SELECTING);
    }
}

void CanvasFunctionBase::doubleClick(QMouseEvent* event)
{
    const CanvasMode mode = host->modes().mode();
    const bool canAdd = mode == CanvasMode::DEFAULT || mode == CanvasMode::ADD;
    if (editingType() == expressionCurve || !canAdd || editing.size() != 1) {
        return;
    }
    const QPointF world = worldUnder(*event);
    addKey(editing.first(), world.x(), world.y());
}

void CanvasFunctionBase::addKey(CurveNode* curve, const double& x, const double& y)
{
    if (!curve) {
        return;
    }
    const QString name = curve->dotName();
    endGestures();
    if (curve_editor::NodeStruct* const record = host->findRecord(name)) {
        host->manager().doCommand(new curve_editor::CommandAddPoint(editor, record, x, y));
    }
}

void CanvasFunctionBase::createNodeAtCursor(CurveNode* curve)
{
    if (curve && editing.size() == 1 && hasKeys(editingType()) &&
        editing.first()->dotName() == curve->dotName()) {
        addKey(curve, gestures->stage.lastWorld.x(), gestures->stage.lastWorld.y());
    }
}

void CanvasFunctionBase::keyPress(QKeyEvent* event)
{
    watchModifiers(event);
    const bool onlyControl = event->modifiers() == Qt::ControlModifier;
    switch (event->key()) {
    case Qt::Key_Z:
        if (onlyControl) {
            host->undo();
        }
        break;
    case Qt::Key_Y:
        if (onlyControl) {
            host->redo();
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
    QMenu* const menu = host->keysMenu();
    host->refresh();
    if (!menu->isVisible()) {
        menu->exec(QCursor::pos()); // a second loop of the same menu would never let the first end
    }
}

void CanvasFunctionBase::currentNodeHasChanged()
{
    if (!editing.isEmpty()) {
        host->reportEditingCurves();
        updateCanvas();
    }
}

void CanvasFunctionBase::hideMark()
{
    gestures->stage.showMark = false;
}
