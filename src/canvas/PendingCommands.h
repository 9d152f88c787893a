#pragma once

#include <memory>

class CurveEditor;

namespace curve_editor {
class CanvasHost;
class CommandChangePoints;
class CommandMovePoints;
class CommandSelectPoints;
class CurveCommand;
} // namespace curve_editor

/// The commands that a gesture becomes at its end: at most one of each kind is pending.
///
/// begin makes a command unless it is pending; commit hands it to the history if anything has
/// changed, and frees it otherwise.
class PendingCommands
{
public:
    /// Neither is owned; without them nothing may begin.
    PendingCommands(CurveEditor* curveEditor, curve_editor::CanvasHost* canvasHost);
    /// Leave nothing pending in the other.
    PendingCommands(PendingCommands&& other) noexcept;
    PendingCommands& operator=(PendingCommands&& other) noexcept;
    /// Frees what is pending; the keys stay as they are.
    ~PendingCommands();

    void beginSelect();
    void commitSelect();
    void beginMove();
    void commitMove();
    void beginChange();
    void commitChange();
    /// Of a change that is pending.
    void describeChange(const char* description);

    bool isEmpty() const;
    /// The way of the keys, then their change, then their selection. To be called where no slot
    /// can begin another gesture meanwhile.
    void commitAll();
    /// Frees what is pending; the keys stay as they are.
    void drop();
    /// Whether this command is the one that commit is handing to the history; asked of each once.
    bool isHandingOver(const curve_editor::CurveCommand* command);

private:
    template <class Command>
    void begin(std::unique_ptr<Command>& pending);
    template <class Command>
    void commit(std::unique_ptr<Command>& pending);

    CurveEditor* editor;            ///< not owned
    curve_editor::CanvasHost* host; ///< not owned
    std::unique_ptr<curve_editor::CommandMovePoints> move;
    std::unique_ptr<curve_editor::CommandSelectPoints> select;
    std::unique_ptr<curve_editor::CommandChangePoints> change;
    const curve_editor::CurveCommand* handedOver = nullptr; ///< not owned and never read
};
