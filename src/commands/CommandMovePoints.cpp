#include "commands/CommandMovePoints.h"

#include "commands/EligibleCurves.h"
#include "commands/PointCopies.h"
#include "editor/CurveEditor.h"

#include <utility>

namespace curve_editor {

namespace {

/// A NaN differs from everything, itself included.
bool isSame(const PointInfo& a, const PointInfo& b)
{
    return a.time == b.time && a.value == b.value;
}

} // namespace

CommandMovePoints::CommandMovePoints(CurveEditor* curveEditor)
    : editor(curveEditor)
    , nodes(eligibleRecords(curveEditor))
{
    for (const NodeStruct* node : std::as_const(nodes)) {
        points.append(selectedPointsOf(editor, node));
        before.append(copiesOf(points.last()));
    }
}

CommandMovePoints::~CommandMovePoints()
{
    freeCopies(before);
    freeCopies(after);
}

bool CommandMovePoints::captureFinalState()
{
    freeCopies(after);
    dropDeparted(nodes, points, before);
    for (const QList<PointInfo*>& list : std::as_const(points))
        after.append(copiesOf(list));
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        for (qsizetype i = 0; i < before[node].size(); ++i) {
            if (!isSame(*before[node][i], *after[node][i]))
                return true;
        }
    }
    return false;
}

bool CommandMovePoints::execute()
{
    report();
    return true;
}

void CommandMovePoints::undo()
{
    apply(before);
    report();
}

void CommandMovePoints::redo()
{
    apply(after);
    report();
}

ZK_String CommandMovePoints::getDescription()
{
    return "Move Control Points";
}

void CommandMovePoints::apply(const QList<QList<PointInfo*>>& states)
{
    const qsizetype count = qMin(nodes.size(), states.size());
    for (qsizetype node = 0; node < count; ++node) {
        SplineBase* const spline = nodes[node]->livingSpline();
        if (!spline)
            continue;
        restoreTimes(*spline, points[node], states[node]);
        for (qsizetype i = 0; i < points[node].size(); ++i) {
            if (spline->findIndex(points[node][i]) >= 0)
                points[node][i]->value = states[node][i]->value;
        }
        spline->setChanged(true);
    }
}

void CommandMovePoints::report()
{
    editor->emitSignalCurvesHaveChanged(nodes);
}

} // namespace curve_editor
