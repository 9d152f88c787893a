#pragma once

#include "commands/CurveCommand.h"
#include "zk_curve_editor_export.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <list>
#include <vector>

namespace curve_editor {

/// Runs commands and holds those that can be undone and redone.
///
///     CurveCommand* undone = editor.getCmdManager()->undo();
///     if (undone) showInStatusBar(undone->getDescription());
///
/// A command that is given to doCommand belongs to the manager from then on: it keeps it on a stack
/// or deletes it. While a command runs (its execute, undo or redo may call the host), undo and redo
/// do nothing, and a further doCommand runs its command at once, which takes its place on the stack
/// right after the running one has taken its own.
///
/// A gesture edits first and becomes a command at its end. It is ended before a command runs, is
/// undone or redone: no two steps overlap.
class ZK_CURVE_EDITOR_EXPORT CurveCommandsManager : public QObject
{
    Q_OBJECT

public:
    /// The one object of the process, of which an editor's manager is a copy. No command goes to
    /// it.
    static CurveCommandsManager& instance();

    /// Copies nothing: an enabled manager with no parent, empty stacks and the limit 0.
    CurveCommandsManager(const CurveCommandsManager& other);
    CurveCommandsManager& operator=(const CurveCommandsManager&) = delete;
    /// Frees the commands on both stacks. A command that is running, whose box for instance lets
    /// the host delete the editor, is freed when it has ended, and returns to its caller as ever.
    ~CurveCommandsManager() override;

    /// Executes a command and takes it over. It is kept if its execute returns true and undo is
    /// enabled, which deletes the commands that could be redone, and the oldest command if the undo
    /// stack holds as many as the limit; otherwise it is deleted. Returns the result of execute;
    /// false for null.
    bool doCommand(CurveCommand* const command);

    /// Undoes the newest command and returns it, still owned by the manager and valid until the
    /// next call that changes the stacks; null if there is none, if a command is running, or if the
    /// command was not kept because of what its listeners did, or the manager is gone.
    CurveCommand* undo();
    /// Redoes the command that was undone last; otherwise as undo.
    CurveCommand* redo();

    /// What undo and redo would move now, for the labels of a host's menu; null if there is
    /// nothing. Owned by the manager and valid until the next call that changes the stacks.
    CurveCommand* nextUndo() const;
    CurveCommand* nextRedo() const;

    /// Frees the commands on both stacks. A command that is running is on neither, and a gesture
    /// goes on.
    void clear();

    /// Ends a gesture that is under way, as a step; gets the command that is to run, perhaps the
    /// gesture's own, or null.
    using GestureEnd = std::function<void(const CurveCommand* next)>;
    /// What endGestures calls from now on; an empty one ends the calls.
    void setGestureEnd(const GestureEnd& end);
    /// Ends what gestures are under way. Called by whoever builds a command that notes the present
    /// state; the manager calls it in doCommand, undo and redo.
    void endGestures();

    /// The limit of each stack. A lower one frees the oldest commands that can be undone and those
    /// farthest from the present that can be redone. With 0 no command is kept.
    void setMaxStackSize(unsigned int size);

    /// Disabling frees both stacks; commands are executed all the same, but not kept.
    void setEnable(bool value);
    bool isEnabled() const;

signals:
    /// A command was executed with the result true, and has its place on the stack if it has one.
    void curveEditorCmdExec();

private:
    using Stack = std::list<CurveCommand*>;

    /// A command begun while another one ran.
    struct Nested
    {
        CurveCommand* command;
        bool isRunning = true;
    };

    CurveCommandsManager();

    void clearUndoStack();
    void clearRedoStack();
    void dropOldest(Stack& stack, const unsigned int& size);
    bool keepsCommands() const;
    bool executeNested(CurveCommand* const command);
    void keep(CurveCommand* const command);
    CurveCommand* move(Stack& from, Stack& to, void (CurveCommand::*step)());
    int placeNested();
    bool emitExecuted(const int& times);
    void destroy(CurveCommand* const command);

    void endGesturesBefore(const CurveCommand* next);
    static void leaveThrown(const QPointer<CurveCommandsManager>& self,
                            CurveCommand* const command);

    GestureEnd gestureEnd;
    unsigned int maxStackSize = 0;
    /// Owned; front is the newest.
    Stack undoStack;
    /// Owned; front is the one undone last.
    Stack redoStack;
    bool enabled = true;
    /// A command of the outermost call is in its execute, undo or redo.
    bool running = false;
    /// Owned; in the order in which they began. They wait for the placing of the outermost one.
    std::list<Nested> nested;
    /// Not owned; what the calls of undo and redo under way will return. A deleted command becomes
    /// null here.
    std::vector<CurveCommand*> returning;
};

} // namespace curve_editor
