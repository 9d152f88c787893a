#pragma once

#include "commands/CurveCommand.h"

#include <QList>
#include <QString>

#include <optional>

class CommandLine;
class CurveEditor;
class FunctionEditor;

namespace curve_editor {

class CommandContext;
struct NodeStruct;

/// Deletes the expressions of a list of curves; their splines stay and are no longer added, but
/// for those of curves that are not on the canvas: these keep the mark.
class CommandDelExpr : public CurveCommand
{
public:
    /// Null records are passed over.
    CommandDelExpr(CurveEditor* editor, FunctionEditor* functionEditor, CommandLine* commandLine,
                   const QList<NodeStruct*>& nodes);
    CommandDelExpr(CommandContext& context, const QList<NodeStruct*>& nodes);

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

    /// What undo does. False if nothing of the context is left after a box.
    bool putBack();

private:
    void deleteExpressions(const bool& again);

    struct Curve
    {
        NodeStruct* node;               ///< not owned: the catalogue's
        std::optional<QString> oldText; ///< none where it had no expression
        bool oldAddFunc;                ///< the spline was added to that expression
        bool newAddFunc;                ///< it still is marked so after the first execute
    };

    CommandContext* context; ///< not owned
    QList<Curve> curves;
};

} // namespace curve_editor
