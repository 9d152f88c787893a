#include "commands/CommandChangePoints.h"

#include "commands/EligibleCurves.h"
#include "commands/PointCopies.h"
#include "editor/CurveEditor.h"

#include <utility>

namespace curve_editor {

namespace {

bool isSame(const PointInfo::TcbData& a, const PointInfo::TcbData& b)
{
    return a.tension == b.tension && a.continuity == b.continuity && a.bias == b.bias &&
           a.easeTo == b.easeTo && a.easeFrom == b.easeFrom;
}

/// The interpolation is not looked at. A NaN differs from everything, itself included.
bool isSame(const PointInfo& a, const PointInfo& b)
{
    return a.value == b.value && a.time == b.time && a.bezier.tangentLeft == b.bezier.tangentLeft &&
           a.bezier.tangentRight == b.bezier.tangentRight && isSame(a.tcb, b.tcb) &&
           a.unifiedTangents == b.unifiedTangents;
}

} // namespace

CommandChangePoints::CommandChangePoints(CurveEditor* curveEditor)
    : editor(curveEditor)
    , nodes(eligibleRecords(curveEditor))
{
    for (const NodeStruct* node : std::as_const(nodes)) {
        points.append(selectedPointsOf(editor, node));
        before.append(copiesOf(points.last()));
    }
}

CommandChangePoints::~CommandChangePoints()
{
    freeCopies(before);
    freeCopies(after);
}

bool CommandChangePoints::captureFinalState()
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

bool CommandChangePoints::execute()
{
    report();
    return true;
}

void CommandChangePoints::undo()
{
    apply(before);
    report();
}

void CommandChangePoints::redo()
{
    apply(after);
    report();
}

ZK_String CommandChangePoints::getDescription()
{
    return "Change Control Points Values";
}

void CommandChangePoints::apply(const QList<QList<PointInfo*>>& states)
{
    const qsizetype count = qMin(nodes.size(), states.size());
    for (qsizetype node = 0; node < count; ++node) {
        SplineBase* const spline = nodes[node]->livingSpline();
        if (!spline)
            continue;
        restoreTimes(*spline, points[node], states[node]);
        for (qsizetype i = 0; i < points[node].size(); ++i) {
            if (spline->findIndex(points[node][i]) >= 0)
                *points[node][i] = *states[node][i];
        }
        spline->setChanged(true);
    }
}

void CommandChangePoints::report()
{
    editor->emitSignalCurvesHaveChanged(nodes);
}

} // namespace curve_editor
