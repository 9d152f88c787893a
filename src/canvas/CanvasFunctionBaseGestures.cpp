// What carries a gesture on and what ends it. What begins one stands with the press.

#include "canvas/CanvasFunctionBase.h"

#include "canvas/CanvasGesture.h"
#include "canvas/FunctionEditor.h"
#include "curves/CurveNode.h"
#include "editor/CurveEditor.h"
#include "graphs/MousePixel.h"

#include <QMouseEvent>
#include <QPoint>

#include <algorithm>

QPointF CanvasFunctionBase::worldAt(const QPoint& pixel) const
{
    return QPointF(view->timeAt(pixel.x()), view->valueAt(pixel.y()));
}

bool CanvasFunctionBase::ignoresPress(const Qt::MouseButton& button) const
{
    const bool isKnown =
        button == Qt::LeftButton || button == Qt::MiddleButton || button == Qt::RightButton;
    return !isKnown || gesture->isSecondButton(button);
}

bool CanvasFunctionBase::ignoresRelease(const Qt::MouseButton& button) const
{
    return button != Qt::MiddleButton && ignoresPress(button);
}

bool CanvasFunctionBase::hasLostButton(const Qt::MouseButtons& held) const
{
    return gesture->hasLostButton(held);
}

void CanvasFunctionBase::move(QMouseEvent* event)
{
    gesture->step(worldAt(mousePixel(event->position())));
}

void CanvasFunctionBase::release(QMouseEvent* event)
{
    using Mode = CurveEditor::curveEditorModes;
    const Mode mode = editor->getCurrentMode();
    const Mode user = editor->getUserMode();
    watchModifiers(event);

    if (ignoresRelease(event->button())) {
        return;
    }
    if (mode == Mode::ZOOMING) {
        // Alt itself is meant, whatever the zoom modifier is.
        editor->setCurrentMode(event->modifiers().testFlag(Qt::AltModifier) ? Mode::ZOOM : user);
    } else if (event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton) {
        gesture->end(mode, user);
    }
}

void CanvasFunctionBase::endGesture()
{
    if (!gesture->isRunning()) {
        return;
    }
    if (view->rubberDrag && view->viewDrag) {
        view->applyRect(true);
    }
    view->clearDrags();
    view->zoomMode = false;
    gesture->end();
    widget->update();
}

void CanvasFunctionBase::endGestures()
{
    if (editor) {
        editor->getCmdManager()->endGestures();
    }
}

void CanvasFunctionBase::endGestureBefore(const curve_editor::CurveCommand* command)
{
    if (!gesture->commands.isHandingOver(command) && gesture->isOnKeys()) {
        endGesture();
    }
}

void CanvasFunctionBase::endGestureOn(const QString& dotName)
{
    CurveNode* const node = gesture->isOnKeys() ? findCurve(dotName) : nullptr;
    const QList<CurveNode*> curves = node ? node->curves() : QList<CurveNode*>();
    if (std::any_of(curves.cbegin(), curves.cend(),
                    [this](CurveNode* curve) { return editing.contains(curve); })) {
        endGestures();
    }
}

void CanvasFunctionBase::endGestureUnlessEditing(const QStringList& dotNames)
{
    if (!gesture->isOnKeys()) {
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

void CanvasFunctionBase::endGestureUnlessIn(const int& mode)
{
    if (!gesture->admits(mode)) {
        endGesture();
    }
}

/// What the modifiers mean depends on the mode, which the end changes.
void CanvasFunctionBase::endLostGesture(QInputEvent* event)
{
    if (gesture->isOfMouse()) {
        endGesture();
        watchModifiers(event);
    }
}

void CanvasFunctionBase::beginSelectCommand()
{
    gesture->commands.beginSelect();
}

void CanvasFunctionBase::commitSelectCommand()
{
    gesture->commands.commitSelect();
}

void CanvasFunctionBase::beginMove(const QPoint& pixel)
{
    gesture->beginMove(worldAt(pixel));
}

void CanvasFunctionBase::beginMoveCommand()
{
    gesture->commands.beginMove();
}

void CanvasFunctionBase::commitMoveCommand()
{
    gesture->commands.commitMove();
}

void CanvasFunctionBase::beginChangeCommand()
{
    gesture->commands.beginChange();
}

void CanvasFunctionBase::commitChangeCommand()
{
    gesture->commands.commitChange();
}

void CanvasFunctionBase::dropPendingCommands()
{
    gesture->commands.drop();
}
