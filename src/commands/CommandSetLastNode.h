#pragma once

#include "commands/CurveCommand.h"
#include "core/SplineBase.h"

#include <QList>

class CurveEditor;

namespace curve_editor {

class CommandContext;
struct NodeStruct;

/// Sets what the curves being edited do before their first key or after their last.
class CommandSetLastNode : public CurveCommand
{
public:
    /// `isFirst`: the behaviour before the first key, else the one after the last.
    CommandSetLastNode(CurveEditor* editor, const SplineBase::nodeType& newType,
                       const bool& isFirst);
    CommandSetLastNode(CommandContext& context, const SplineBase::nodeType& newType,
                       const bool& isFirst);

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    CommandContext* context;  ///< not owned
    QList<NodeStruct*> nodes; ///< not owned: the catalogue's
    SplineBase::nodeType newType;
    QList<SplineBase::nodeType> oldTypes; ///< one a node
    bool sameType = true;                 ///< every curve has the behaviour already
    bool isFirst;
};

} // namespace curve_editor
