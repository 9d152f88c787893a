#pragma once

#include "commands/CurveCommand.h"

#include <QList>
#include <QStringList>

class CurveEditor;
class CurveNode;

namespace curve_editor {

/// Takes curves out of the editing set without touching their data.
class CommandRemoveCurves : public CurveCommand
{
public:
    /// `names`: dotted names of curves or groups.
    CommandRemoveCurves(CurveEditor* editor, const QStringList& names);

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    CurveEditor* editor; ///< not owned
    QStringList previousSelection;
    QStringList names;
    /// The canvas's, which unlinks but does not free them; an entry may be null. One entry a name
    /// from execute, which undo reads, and as many more from each redo.
    QList<CurveNode*> curves;
};

} // namespace curve_editor
