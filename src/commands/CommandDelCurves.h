#pragma once

#include "commands/CurveCommand.h"
#include "curves/NodeStruct.h"
#include "zk_curve_editor_export.h"

#include <QList>
#include <QStringList>

#include <memory>
#include <vector>

class CurveEditor;

namespace curve_editor {

class CommandContext;
class CommandDelExpr;
class CommandResetCurves;
class CommandSelectPoints;

/// Takes the content of curves away, their keys and their expressions; the curves stay listed.
/// Each step reports every curve once.
///
///     editor->getCmdManager()->doCommand(
///         new CommandDelCurves(editor, QStringList{"body.width", "body.height"}));
class ZK_CURVE_EDITOR_EXPORT CommandDelCurves : public CurveCommand
{
public:
    /// Null records, and names that the editor does not list, are passed over.
    CommandDelCurves(CurveEditor* editor, const QList<NodeStruct*>& nodes);
    CommandDelCurves(CurveEditor* editor, const QStringList& dotNames);
    CommandDelCurves(CommandContext& context, const QList<NodeStruct*>& nodes);
    /// Only a command that has not run yet may be copied, and assigned to: what one has taken out
    /// of its curves stays its own alone.
    CommandDelCurves(const CommandDelCurves& other);
    CommandDelCurves& operator=(const CommandDelCurves& other);
    ~CommandDelCurves() override;

    /// Each execution takes the contents of its own moment; undo and redo go by the latest.
    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    /// What one execution did, step by step.
    struct Parts
    {
        std::unique_ptr<CommandResetCurves> resetCommand;
        std::unique_ptr<CommandDelExpr> delExprCommand;
    };

    CommandContext* context;                            ///< not owned
    QList<NodeStruct*> nodes;                           ///< not owned: the catalogue's
    std::vector<Parts> parts;                           ///< one entry an execution
    std::unique_ptr<CommandSelectPoints> selectCommand; ///< null until the first execution
};

} // namespace curve_editor
