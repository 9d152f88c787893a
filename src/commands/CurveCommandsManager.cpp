#include "commands/CurveCommandsManager.h"

#include "commands/CurveCommand.h"

#include <QPointer>

#include <algorithm>

namespace curve_editor {

CurveCommandsManager& CurveCommandsManager::instance()
{
    static CurveCommandsManager manager;
    return manager;
}

CurveCommandsManager::CurveCommandsManager() = default;

CurveCommandsManager::CurveCommandsManager(const CurveCommandsManager& /*other*/)
    : QObject(nullptr)
{
    instance();
}

/// A command that is running is freed by the call that runs it.
CurveCommandsManager::~CurveCommandsManager()
{
    clear();
    for (const Nested& each : nested) {
        if (!each.isRunning) {
            delete each.command;
        }
    }
}

/// A command that has thrown is on no stack, and the next ones run as ever.
void CurveCommandsManager::leaveThrown(const QPointer<CurveCommandsManager>& self,
                                       CurveCommand* const command)
{
    if (self) {
        self->running = false;
    }
    delete command;
}

bool CurveCommandsManager::doCommand(CurveCommand* const command)
{
    if (!command) {
        return false;
    }
    const QPointer<CurveCommandsManager> self(this);
    endGesturesBefore(command);
    if (!self) {
        delete command;
        return false;
    }
    if (running) {
        return executeNested(command);
    }
    running = true;
    bool executed = false;
    try {
        executed = command->execute();
    } catch (...) {
        leaveThrown(self, command);
        throw;
    }
    if (!self) { // a box of the command runs an event loop, in which the host may do anything
        delete command;
        return executed;
    }
    running = false;
    if (executed) {
        keep(command);
    } else {
        destroy(command);
    }
    const int nestedCount = placeNested();
    emitExecuted(nestedCount + (executed ? 1 : 0));
    return executed;
}

CurveCommand* CurveCommandsManager::undo()
{
    const QPointer<CurveCommandsManager> self(this);
    if (!running) {
        endGestures();
    }
    return self ? move(undoStack, redoStack, &CurveCommand::undo) : nullptr;
}

CurveCommand* CurveCommandsManager::redo()
{
    const QPointer<CurveCommandsManager> self(this);
    if (!running) {
        endGestures();
    }
    return self ? move(redoStack, undoStack, &CurveCommand::redo) : nullptr;
}

CurveCommand* CurveCommandsManager::nextUndo() const
{
    return undoStack.empty() ? nullptr : undoStack.front();
}

CurveCommand* CurveCommandsManager::nextRedo() const
{
    return redoStack.empty() ? nullptr : redoStack.front();
}

void CurveCommandsManager::clear()
{
    clearUndoStack();
    clearRedoStack();
}

void CurveCommandsManager::setGestureEnd(const GestureEnd& end)
{
    gestureEnd = end;
}

void CurveCommandsManager::endGestures()
{
    endGesturesBefore(nullptr);
}

/// By a copy, which lasts if a listener sets another one.
void CurveCommandsManager::endGesturesBefore(const CurveCommand* next)
{
    const GestureEnd end = gestureEnd;
    if (end) {
        end(next);
    }
}

void CurveCommandsManager::setMaxStackSize(unsigned int size)
{
    dropOldest(undoStack, size);
    dropOldest(redoStack, size);
    maxStackSize = size;
}

void CurveCommandsManager::setEnable(bool value)
{
    enabled = value;
    if (!enabled) {
        clear();
    }
}

bool CurveCommandsManager::isEnabled() const
{
    return enabled;
}

/// From the earliest action to the latest, as in clearRedoStack.
void CurveCommandsManager::clearUndoStack()
{
    while (!undoStack.empty()) {
        CurveCommand* const oldest = undoStack.back();
        undoStack.pop_back();
        destroy(oldest);
    }
}

void CurveCommandsManager::clearRedoStack()
{
    while (!redoStack.empty()) {
        CurveCommand* const earliest = redoStack.front();
        redoStack.pop_front();
        destroy(earliest);
    }
}

void CurveCommandsManager::dropOldest(Stack& stack, const unsigned int& size)
{
    while (stack.size() > size) {
        CurveCommand* const last = stack.back();
        stack.pop_back();
        destroy(last);
    }
}

bool CurveCommandsManager::keepsCommands() const
{
    return enabled && maxStackSize > 0;
}

/// Its place is taken before it runs: what it runs itself comes behind it. A command that was
/// executed is not freed here even if it can't be kept, for the running one is older than it and
/// may name the same keys.
bool CurveCommandsManager::executeNested(CurveCommand* const command)
{
    const QPointer<CurveCommandsManager> self(this);
    const auto place = nested.insert(nested.end(), {command});
    bool executed = false;
    try {
        executed = command->execute();
    } catch (...) {
        if (self) {
            nested.erase(place);
        }
        delete command;
        throw;
    }
    if (!self) {
        delete command;
        return executed;
    }
    place->isRunning = false;
    if (!executed) {
        nested.erase(place);
        destroy(command);
    }
    return executed;
}

void CurveCommandsManager::keep(CurveCommand* const command)
{
    if (!keepsCommands()) {
        destroy(command);
        return;
    }
    clearRedoStack();
    // Only at the limit, not above it: what redo carried past a lowered limit stays.
    if (undoStack.size() == maxStackSize) {
        dropOldest(undoStack, maxStackSize - 1);
    }
    undoStack.push_front(command);
}

CurveCommand* CurveCommandsManager::move(Stack& from, Stack& to, void (CurveCommand::*step)())
{
    if (running || from.empty()) {
        return nullptr;
    }
    CurveCommand* const command = from.front();
    from.pop_front();
    const QPointer<CurveCommandsManager> self(this);
    running = true;
    try {
        (command->*step)();
    } catch (...) {
        leaveThrown(self, command);
        throw;
    }
    if (!self) {
        delete command;
        return nullptr;
    }
    running = false;

    returning.push_back(command);
    if (keepsCommands()) {
        to.push_front(command);
    } else {
        destroy(command);
    }
    if (!emitExecuted(placeNested())) {
        return nullptr;
    }
    CurveCommand* const result = returning.back();
    returning.pop_back();
    return result;
}

/// Returns how many there were.
int CurveCommandsManager::placeNested()
{
    int count = 0;
    while (!nested.empty()) {
        CurveCommand* const command = nested.front().command;
        nested.pop_front();
        keep(command);
        ++count;
    }
    return count;
}

/// Returns false if a listener destroyed the manager.
bool CurveCommandsManager::emitExecuted(const int& times)
{
    const QPointer<CurveCommandsManager> self(this);
    for (int time = 0; time < times && self; ++time) {
        emit curveEditorCmdExec();
    }
    return self;
}

void CurveCommandsManager::destroy(CurveCommand* const command)
{
    std::replace(returning.begin(), returning.end(), command, static_cast<CurveCommand*>(nullptr));
    delete command;
}

} // namespace curve_editor
