#pragma once

#include "commands/CurveCommand.h"
#include "commands/GestureKeys.h"

class CurveEditor;

namespace curve_editor {

class CommandContext;

/// A drag of keys: their times and values before and after. Built when the gesture
/// begins, captured when it ends; keys that have left their spline by then are dropped.
class CommandMovePoints : public CurveCommand
{
public:
    /// Notes the selected keys of the curves being edited, as they are.
    explicit CommandMovePoints(CurveEditor* editor);
    explicit CommandMovePoints(CommandContext& context);

    /// Notes the same keys as they are now; returns whether anything differs.
    bool captureFinalState();

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    GestureKeys keys;
};

} // namespace curve_editor
