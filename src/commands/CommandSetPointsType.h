#pragma once

#include "commands/CurveCommand.h"
#include "core/InterpolationType.h"
#include "core/KeyRef.h"

#include <QList>

class CurveEditor;

namespace curve_editor {

class CommandContext;
struct NodeStruct;

/// Sets the interpolation of the selected keys.
class CommandSetPointsType : public CurveCommand
{
public:
    CommandSetPointsType(CurveEditor* editor, const zk_spline::interpolationType& newType);
    CommandSetPointsType(CommandContext& context, const zk_spline::interpolationType& newType);

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    CommandContext* context;  ///< not owned
    QList<NodeStruct*> nodes; ///< not owned: the catalogue's
    zk_spline::interpolationType newType;
    QList<QList<zk_spline::interpolationType>> oldTypes; ///< one list a node
    QList<QList<KeyRef>> points;                         ///< one list a node; not owned
    bool sameType = true; ///< every selected key has the new type already
};

} // namespace curve_editor
