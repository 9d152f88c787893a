#pragma once

#include "commands/CurveCommand.h"
#include "commands/GestureKeys.h"

class CurveEditor;

namespace curve_editor {

class CommandContext;

/// A change of whole keys, made by a gesture or a dialog. Built when the gesture
/// begins, captured when it ends; keys that have left their spline by then are dropped.
class CommandChangePoints : public CurveCommand
{
public:
    /// Notes the selected keys of the curves being edited, as they are.
    explicit CommandChangePoints(CurveEditor* editor);
    explicit CommandChangePoints(CommandContext& context);

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
