#include "commands/CommandSetPointsType.h"

#include "commands/EligibleCurves.h"
#include "core/SplineBase.h"
#include "editor/CurveEditor.h"

#include <utility>

namespace curve_editor {

CommandSetPointsType::CommandSetPointsType(CurveEditor* curveEditor,
                                           const zk_spline::interpolationType& type)
    : editor(curveEditor)
    , nodes(eligibleRecords(curveEditor))
    , newType(type)
{
    for (const NodeStruct* node : std::as_const(nodes)) {
        const QList<PointInfo*> selected = selectedPointsOf(editor, node);
        QList<zk_spline::interpolationType> types;
        for (const PointInfo* point : selected) {
            types.append(point->type);
            sameType = sameType && point->type == newType;
        }
        points.append(selected);
        oldTypes.append(types);
    }
}

bool CommandSetPointsType::execute()
{
    if (sameType) {
        return false;
    }
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        SplineBase* const spline = nodes[node]->livingSpline();
        for (PointInfo* point : std::as_const(points[node])) {
            if (spline) {
                spline->setType(point, newType);
            }
        }
    }
    editor->emitSignalCurvesHaveChanged(nodes);
    return true;
}

void CommandSetPointsType::undo()
{
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        SplineBase* const spline = nodes[node]->livingSpline();
        for (qsizetype i = 0; spline && i < points[node].size(); ++i) {
            spline->setType(points[node][i], oldTypes[node][i]);
        }
    }
    editor->emitSignalCurvesHaveChanged(nodes);
}

void CommandSetPointsType::redo()
{
    execute();
}

ZK_String CommandSetPointsType::getDescription()
{
    return "Set Control Points Type";
}

} // namespace curve_editor
