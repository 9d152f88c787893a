#pragma once

#include "commands/CurveCommand.h"

#include <QList>

class CurveEditor;
struct PointInfo;

namespace curve_editor {

struct NodeStruct;

/// A change of whole keys, made by a gesture or a dialog. Built when the gesture
/// begins, captured when it ends; keys that have left their spline by then are dropped.
class CommandChangePoints : public CurveCommand
{
public:
    /// Notes the selected keys of the curves being edited, as they are.
    explicit CommandChangePoints(CurveEditor* editor);
    ~CommandChangePoints() override;

    /// Notes the same keys as they are now; returns whether anything differs.
    bool captureFinalState();

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    void apply(const QList<QList<PointInfo*>>& states);
    void report();

    CurveEditor* editor;      ///< not owned
    QList<NodeStruct*> nodes; ///< not owned, never freed
    /// One list a node, in step with each other: the live keys, not owned, and copies of them.
    QList<QList<PointInfo*>> points;
    QList<QList<PointInfo*>> before; ///< owned copies
    QList<QList<PointInfo*>> after;  ///< owned copies; empty until the capture
};

} // namespace curve_editor
