#pragma once

#include "commands/CurveCommand.h"
#include "curves/CurveHold.h"

#include <QStringList>

#include <vector>

class CurveEditor;

namespace curve_editor {

class CommandContext;

/// Takes curves off the canvas without touching their data.
class CommandRemoveCurves : public CurveCommand
{
public:
    /// `names`: dotted names of curves or groups.
    CommandRemoveCurves(CurveEditor* editor, const QStringList& names);
    CommandRemoveCurves(CommandContext& context, const QStringList& names);

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    CommandContext* context; ///< not owned
    QStringList previousSelection;
    QStringList names;
    /// One a name: what the first execute took out, for undo to put it back. A redo adds none.
    /// Any may be null.
    std::vector<CurveHold> curves;
};

} // namespace curve_editor
