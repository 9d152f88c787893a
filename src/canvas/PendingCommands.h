#pragma once

#include <memory>

class CurveEditor;

namespace curve_editor {
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
    /// `curveEditor` is not owned; without one nothing may begin.
    explicit PendingCommands(CurveEditor* curveEditor);
    /// Frees what is pending; the keys stay as they are.
    ~PendingCommands();
    PendingCommands(const PendingCommands&) = delete;
    PendingCommands& operator=(const PendingCommands&) = delete;

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

    CurveEditor* editor; ///< not owned
    std::unique_ptr<curve_editor::CommandMovePoints> move;
    std::unique_ptr<curve_editor::CommandSelectPoints> select;
    std::unique_ptr<curve_editor::CommandChangePoints> change;
    const curve_editor::CurveCommand* handedOver = nullptr; ///< not owned and never read
};
