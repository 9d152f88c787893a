#include "canvas/CanvasGestures.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasHost.h"
#include "canvas/KeyDrag.h"
#include "canvas/ModeControl.h"
#include "canvas/RubberBand.h"
#include "graphs/ViewPort.h"

#include <utility>

using curve_editor::CanvasMode;
using curve_editor::ModeControl;

CanvasGestures::CanvasGestures(CanvasFunctionBase& canvas, CurveEditor* editor,
                               curve_editor::CanvasHost* host, ViewPort* view)
    : stage{canvas, host, view}
    , opened(editor, host)
{}

PendingCommands& CanvasGestures::commands()
{
    return running ? running->commands : opened;
}

const PendingCommands& CanvasGestures::commands() const
{
    return running ? running->commands : opened;
}

/// What is open already passes to the gesture.
template <class Gesture>
std::shared_ptr<Gesture> CanvasGestures::start()
{
    auto started = std::make_shared<Gesture>(stage, std::move(commands()));
    running = started;
    return started;
}

void CanvasGestures::press(Qt::MouseButton with, const QPointF& world)
{
    forget();
    button = with;
    stage.lastWorld = world;
}

void CanvasGestures::beginMove(const QPointF& world)
{
    stage.startWorld = world;
    commands().beginMove();
}

void CanvasGestures::beginKeyDrag(bool wholeKeys)
{
    start<KeyDrag>()->begin(wholeKeys);
}

void CanvasGestures::beginRubberBand(CanvasMode mode)
{
    start<RubberBand>()->begin(mode);
}

void CanvasGestures::run(const std::function<void(PendingCommands&)>& begin,
                         const std::function<void()>& edit)
{
    const std::shared_ptr<CanvasGesture> mine = start<CanvasGesture>();
    begin(mine->commands);
    edit();
    mine->commands.commitAll();
    if (running == mine) {
        leave();
    }
}

bool CanvasGestures::isDraggingKeys() const
{
    return isMoveMode(stage.host->modes().mode()) && stage.hasKeysToEdit();
}

void CanvasGestures::step(const QPointF& world)
{
    if (!isDraggingKeys()) {
        return;
    }
    if (!running || !running->admits(CanvasMode::MOVING)) {
        start<KeyDrag>(); // an application has set the mode
    }
    const std::shared_ptr<CanvasGesture> mine = running; // whoever hears of the step may end it
    mine->step(world);
}

void CanvasGestures::end()
{
    const ModeControl& modes = stage.host->modes();
    const CanvasMode mode = modes.mode();
    if (mode != CanvasMode::ZOOMING) {
        end(mode, modes.userMode());
        return;
    }
    const std::shared_ptr<CanvasGesture> mine = running; // whoever hears of a step may end it
    commands().commitAll();
    forget();
    stage.host->modes().setMode(modes.userMode());
}

/// Whoever hears of a step may end this gesture and begin another.
void CanvasGestures::end(CanvasMode mode, CanvasMode userMode)
{
    ViewPort& view = *stage.view;
    const unsigned ending = serial;
    view.showLabels = stage.canvas.toolTipsOn;
    const bool hasKeysToEdit = stage.hasKeysToEdit();
    if (hasKeysToEdit && isRubberMode(mode) && !(running && running->admits(mode))) {
        start<RubberBand>(); // an application has set the mode
    }
    const std::shared_ptr<CanvasGesture> mine = running ? running : start<CanvasGesture>();
    mine->end(mode);
    if (serial != ending) {
        return; // it was ended meanwhile, and perhaps another one begun
    }
    stage.showMark = stage.showMark && !isMoveMode(mode);
    view.rectActive = false;
    view.rectValid = false;
    forget();
    if (!hasKeysToEdit || isRubberMode(mode) || isMoveMode(mode)) {
        const bool staysAdding = hasKeysToEdit && mode == CanvasMode::ADDING2SEL;
        stage.host->modes().setMode(staysAdding ? CanvasMode::ADD2SEL : userMode);
    }
}

void CanvasGestures::cancel()
{
    commands().drop();
}

void CanvasGestures::forget()
{
    ++serial;
    leave();
    button = Qt::NoButton;
}

/// What an application has opened meanwhile stays open.
void CanvasGestures::leave()
{
    if (running) {
        opened = std::move(running->commands);
        running.reset();
    }
}

bool CanvasGestures::isOfMouse() const
{
    return (running && running->isOfMouse()) || stage.view->isDragged();
}

bool CanvasGestures::isOnKeys() const
{
    const bool hasRubberBand = stage.view->rubberDrag && !stage.view->viewDrag;
    return (running && running->isOfMouse()) || hasRubberBand || !commands().isEmpty();
}

bool CanvasGestures::isRunning() const
{
    return isOfMouse() || !commands().isEmpty();
}

bool CanvasGestures::isSecondButton(Qt::MouseButton other) const
{
    return isOfMouse() && button != Qt::NoButton && other != button;
}

bool CanvasGestures::hasLostButton(Qt::MouseButtons held) const
{
    return isOfMouse() && button != Qt::NoButton && !held.testFlag(button);
}

bool CanvasGestures::admits(CanvasMode mode) const
{
    return !running || !running->isOfMouse() || running->admits(mode);
}

bool CanvasGestures::isHandingOver(const curve_editor::CurveCommand* command)
{
    return commands().isHandingOver(command);
}
