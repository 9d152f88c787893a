#include "canvas/PendingCommands.h"

#include "canvas/CanvasHost.h"
#include "commands/CommandChangePoints.h"
#include "commands/CommandMovePoints.h"
#include "commands/CommandSelectPoints.h"
#include "commands/CurveCommandsManager.h"

#include <utility>

PendingCommands::PendingCommands(CurveEditor* curveEditor, curve_editor::CanvasHost* canvasHost)
    : editor(curveEditor)
    , host(canvasHost)
{}

PendingCommands::PendingCommands(PendingCommands&& other) noexcept = default;
PendingCommands& PendingCommands::operator=(PendingCommands&& other) noexcept = default;
PendingCommands::~PendingCommands() = default;

template <class Command>
void PendingCommands::begin(std::unique_ptr<Command>& pending)
{
    if (!pending) {
        pending = std::make_unique<Command>(editor);
    }
}

/// The pending pointer is cleared first: doCommand can call the host, and the host the canvas.
template <class Command>
void PendingCommands::commit(std::unique_ptr<Command>& pending)
{
    std::unique_ptr<Command> command = std::move(pending);
    if (command && command->captureFinalState()) {
        handedOver = command.get();
        host->manager().doCommand(command.release());
    }
}

void PendingCommands::beginSelect()
{
    begin(select);
}

void PendingCommands::commitSelect()
{
    commit(select);
}

void PendingCommands::beginMove()
{
    begin(move);
}

void PendingCommands::commitMove()
{
    commit(move);
}

void PendingCommands::beginChange()
{
    begin(change);
}

void PendingCommands::commitChange()
{
    commit(change);
}

void PendingCommands::describeChange(const char* description)
{
    change->setDescription(description);
}

bool PendingCommands::isEmpty() const
{
    return !move && !select && !change;
}

void PendingCommands::commitAll()
{
    commitMove();
    commitChange();
    commitSelect();
}

void PendingCommands::drop()
{
    move.reset();
    select.reset();
    change.reset();
}

bool PendingCommands::isHandingOver(const curve_editor::CurveCommand* command)
{
    return command && std::exchange(handedOver, nullptr) == command;
}
