#pragma once

#include "commands/CurveCommand.h"

#include <QList>
#include <QString>

#include <optional>

class CommandLine;
class CurveEditor;
class FunctionEditor;

namespace curve_editor {

struct NodeStruct;

/// Deletes the expressions of a list of curves; their splines stay and are no longer added.
class CommandDelExpr : public CurveCommand
{
public:
    /// Null records are passed over.
    CommandDelExpr(CurveEditor* editor, FunctionEditor* functionEditor, CommandLine* commandLine,
                   const QList<NodeStruct*>& nodes);

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    CurveEditor* editor;                    ///< not owned
    QList<std::optional<QString>> oldTexts; ///< one a node; none where it had no expression
    QList<bool> oldAddFunc;                 ///< one a node: the spline was added to the expression
    QList<NodeStruct*> nodes;               ///< not owned, never freed
};

} // namespace curve_editor
