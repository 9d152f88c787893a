#pragma once

#include "commands/CurveCommand.h"
#include "core/KeyRef.h"

#include <QList>

class CurveEditor;

namespace curve_editor {

class CommandContext;
struct NodeStruct;

/// A change of the selected keys; also a part of other commands.
class CommandSelectPoints : public CurveCommand
{
public:
    /// Notes the selected keys of the curves being edited.
    explicit CommandSelectPoints(CurveEditor* editor);
    explicit CommandSelectPoints(CommandContext& context);

    /// Notes the selection as it is now; returns whether it differs. Order does not count.
    bool captureFinalState();

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    void apply(const QList<QList<KeyRef>>& lists);

    CommandContext* context;     ///< not owned
    QList<NodeStruct*> nodes;    ///< not owned: the catalogue's
    QList<QList<KeyRef>> before; ///< one list a node; keys not owned
    QList<QList<KeyRef>> after;  ///< one list a node; keys not owned
};

} // namespace curve_editor
