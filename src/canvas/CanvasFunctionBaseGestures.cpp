#include "canvas/CanvasFunctionBase.h"

#include "commands/CommandChangePoints.h"
#include "commands/CommandMovePoints.h"
#include "commands/CommandSelectPoints.h"
#include "editor/CurveEditor.h"

#include <QPoint>

namespace {

template <class Command>
void begin(std::unique_ptr<Command>& pending, CurveEditor* editor)
{
    if (!pending) {
        pending = std::make_unique<Command>(editor);
    }
}

/// The pending pointer is cleared first: doCommand can call the host, and the host the canvas.
template <class Command>
void commit(std::unique_ptr<Command>& pending, CurveEditor* editor)
{
    std::unique_ptr<Command> command = std::move(pending);
    if (command && command->captureFinalState()) {
        editor->getCmdManager()->doCommand(command.release());
    }
}

} // namespace

void CanvasFunctionBase::beginSelectCommand()
{
    begin(pendingSelect, editor);
}

void CanvasFunctionBase::commitSelectCommand()
{
    commit(pendingSelect, editor);
}

void CanvasFunctionBase::beginMove(const QPoint& pixel)
{
    worldAt(pixel, startWorldX, startWorldY);
    beginMoveCommand();
}

void CanvasFunctionBase::beginMoveCommand()
{
    begin(pendingMove, editor);
}

void CanvasFunctionBase::commitMoveCommand()
{
    commit(pendingMove, editor);
}

void CanvasFunctionBase::beginChangeCommand()
{
    begin(pendingChange, editor);
}

void CanvasFunctionBase::commitChangeCommand()
{
    commit(pendingChange, editor);
}

void CanvasFunctionBase::dropPendingCommands()
{
    pendingMove.reset();
    pendingSelect.reset();
    pendingChange.reset();
}
