#pragma once

#include "commands/CurveCommand.h"
#include "commands/CurveContents.h"
#include "core/KeyRef.h"

#include <QList>

#include <memory>

class CurveEditor;
class CurveNode;

namespace curve_editor {

class CommandContext;
class CommandSelectPoints;

/// Lays the keys of a curve over all curves being edited, in place of their keys or beside them.
/// Each keeps its expression.
class CommandPasteCurve : public CurveCommand
{
public:
    /// Takes the curves being edited, and copies the keys of `source`, which is not kept. `offset`
    /// in seconds is added to their times. With `keysOnly` the keys of the targets stay, and the
    /// pasted ones are selected.
    CommandPasteCurve(CurveEditor* editor, CurveNode* source, const double& offset,
                      const bool& keysOnly);
    CommandPasteCurve(CommandContext& context, CurveNode* source, const double& offset,
                      const bool& keysOnly);
    ~CommandPasteCurve() override;

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    void addTarget(NodeStruct* node);
    bool placePasted();

    CommandContext* context;            ///< not owned
    QList<NodeStruct*> targets;         ///< not owned: the catalogue's
    std::unique_ptr<SplineBase> source; ///< the keys to paste; null once they are pasted
    CurveContents contents;
    QList<QList<KeyRef>> pastedPoints; ///< one list an entry of contents; keys not owned
    bool keysOnly;
    std::unique_ptr<CommandSelectPoints> selectCommand;
};

} // namespace curve_editor
