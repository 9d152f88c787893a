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

/// Sets the text of the expression line on a list of curves, each of which gets a tree of its own.
class CommandParseExpr : public CurveCommand
{
public:
    /// Null records are passed over.
    CommandParseExpr(CurveEditor* editor, FunctionEditor* functionEditor, CommandLine* commandLine,
                     const QList<NodeStruct*>& nodes);
    CommandParseExpr(CommandContext& context, CommandLine* commandLine,
                     const QList<NodeStruct*>& nodes);

    /// False when the text has an error, which the line then marks, and when there is no curve. A
    /// cycle of curves that read each other is no error here: the expression is set.
    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    struct Curve
    {
        NodeStruct* node;               ///< not owned: the catalogue's
        std::optional<QString> oldText; ///< none where it had no expression
        /// Whether the spline was marked as added when the expression first came; none until then.
        std::optional<bool> firstAddFunc;
    };

    void takeUpMark(Curve& curve);

    CommandContext* context;  ///< not owned
    CommandLine* commandLine; ///< not owned
    QString text;             ///< of the line at construction
    QList<Curve> curves;
};

} // namespace curve_editor
