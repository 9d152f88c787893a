// What begins a gesture, carries it on and ends it. CanvasPress tells what a press begins.

#include "canvas/CanvasFunctionBase.h"

#include "canvas/CanvasGestures.h"
#include "canvas/CanvasHost.h"
#include "canvas/CanvasPress.h"
#include "canvas/FunctionEditor.h"
#include "canvas/ModeControl.h"
#include "commands/CurveCommandsManager.h"
#include "curves/CurveNode.h"
#include "files/CurveType.h"
#include "graphs/MousePixel.h"

#include <QMouseEvent>
#include <QPoint>

#include <algorithm>

using curve_editor::CanvasMode;

QPointF CanvasFunctionBase::worldAt(const QPointF& place) const
{
    return QPointF(view->timeAt(place.x()), view->valueAt(place.y()));
}

/// As finely as the screen can show it.
QPointF CanvasFunctionBase::worldUnder(const QMouseEvent& event) const
{
    return worldAt(mousePlace(event.position(), widget->devicePixelRatioF()));
}

bool CanvasFunctionBase::ignoresPress(const Qt::MouseButton& button) const
{
    const bool isKnown =
        button == Qt::LeftButton || button == Qt::MiddleButton || button == Qt::RightButton;
    return !isKnown || gestures->isSecondButton(button);
}

bool CanvasFunctionBase::ignoresRelease(const Qt::MouseButton& button) const
{
    return button != Qt::MiddleButton && ignoresPress(button);
}

bool CanvasFunctionBase::hasLostButton(const Qt::MouseButtons& held) const
{
    return gestures->hasLostButton(held);
}

bool CanvasFunctionBase::press(QMouseEvent* event)
{
    if (ignoresPress(event->button())) {
        return true;
    }
    endLostGesture(event);
    endGestures();
    const CanvasMode mode = host->modes().mode();
    const QPoint pixel = mousePixel(event->position());
    gestures->press(event->button(), worldUnder(*event));
    if (!isEditing()) {
        return event->button() == Qt::LeftButton;
    }
    watchModifiers(event);
    if (mode == CanvasMode::ZOOM) {
        host->modes().setMode(CanvasMode::ZOOMING);
        return false;
    }
    CanvasPress press(*this, *gestures, event->button(), pixel);
    return editingType() != expressionCurve && press.doIn(mode);
}

void CanvasFunctionBase::move(QMouseEvent* event)
{
    gestures->step(worldUnder(*event));
}

void CanvasFunctionBase::release(QMouseEvent* event)
{
    const CanvasMode mode = host->modes().mode();
    const CanvasMode user = host->modes().userMode();
    watchModifiers(event);

    if (ignoresRelease(event->button())) {
        return;
    }
    if (mode == CanvasMode::ZOOMING) {
        // Alt itself is meant, whatever the zoom modifier is.
        const bool staysZooming = event->modifiers().testFlag(Qt::AltModifier);
        host->modes().setMode(staysZooming ? CanvasMode::ZOOM : user);
    } else if (event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton) {
        gestures->end(mode, user);
    }
}

void CanvasFunctionBase::endGesture()
{
    if (!gestures->isRunning()) {
        return;
    }
    view->endDrag();
    gestures->end();
    widget->update();
}

void CanvasFunctionBase::endGestures()
{
    if (host) {
        host->manager().endGestures();
    }
}

void CanvasFunctionBase::endGestureBefore(const curve_editor::CurveCommand* command)
{
    if (!gestures->isHandingOver(command) && gestures->isOnKeys()) {
        endGesture();
    }
}

void CanvasFunctionBase::endGestureOn(const QString& dotName)
{
    CurveNode* const node = gestures->isOnKeys() ? findCurve(dotName) : nullptr;
    const QList<CurveNode*> curves = node ? node->curves() : QList<CurveNode*>();
    if (std::any_of(curves.cbegin(), curves.cend(),
                    [this](CurveNode* curve) { return editing.contains(curve); })) {
        endGestures();
    }
}

void CanvasFunctionBase::endGestureUnlessEditing(const QStringList& dotNames)
{
    if (!gestures->isOnKeys()) {
        return;
    }
    QList<CurveNode*> named;
    for (const QString& name : dotNames) {
        named.append(findCurve(name));
    }
    if (!editing.isExactly(named)) {
        endGestures();
    }
}

void CanvasFunctionBase::endGestureUnlessIn(CanvasMode mode)
{
    if (!gestures->admits(mode)) {
        endGesture();
    }
}

/// What the modifiers mean depends on the mode, which the end changes.
void CanvasFunctionBase::endLostGesture(QInputEvent* event)
{
    if (gestures->isOfMouse()) {
        endGesture();
        watchModifiers(event);
    }
}

void CanvasFunctionBase::beginSelectCommand()
{
    gestures->commands().beginSelect();
}

void CanvasFunctionBase::commitSelectCommand()
{
    gestures->commands().commitSelect();
}

void CanvasFunctionBase::beginMove(const QPoint& pixel)
{
    gestures->beginMove(worldAt(pixel));
}

void CanvasFunctionBase::beginMoveCommand()
{
    gestures->commands().beginMove();
}

void CanvasFunctionBase::commitMoveCommand()
{
    gestures->commands().commitMove();
}

void CanvasFunctionBase::beginChangeCommand()
{
    gestures->commands().beginChange();
}

void CanvasFunctionBase::commitChangeCommand()
{
    gestures->commands().commitChange();
}

void CanvasFunctionBase::dropPendingCommands()
{
    gestures->cancel();
}
