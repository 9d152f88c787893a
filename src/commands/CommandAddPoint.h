#pragma once

#include "commands/CurveCommand.h"
#include "core/KeyRef.h"

#include <QList>

class CurveEditor;

namespace curve_editor {

class CommandContext;
struct NodeStruct;

/// Adds one key to a curve.
class CommandAddPoint : public CurveCommand
{
public:
    /// `time` in seconds. A null node, or one without a spline, makes execute refuse.
    CommandAddPoint(CurveEditor* editor, NodeStruct* node, const double& time, const double& value);
    CommandAddPoint(CommandContext& context, NodeStruct* node, const double& time,
                    const double& value);
    ~CommandAddPoint() override;

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    bool putIn();
    void report();

    CommandContext* context; ///< not owned
    NodeStruct* node;        ///< not owned: the catalogue's
    double time;
    double value;
    KeyRef point;                    ///< owned while pointInSpline is false, else the spline's;
                                     ///< null once somebody else has taken it out
    QList<KeyRef> previousSelection; ///< not owned
    bool pointInSpline = false;
};

} // namespace curve_editor
