#include "commands/CommandSetPointsType.h"

#include "commands/CommandContext.h"
#include "commands/RecordKeys.h"
#include "core/SplineBase.h"

#include <utility>

namespace curve_editor {

CommandSetPointsType::CommandSetPointsType(CurveEditor* editor,
                                           const zk_spline::interpolationType& type)
    : CommandSetPointsType(contextOf(editor), type)
{}

CommandSetPointsType::CommandSetPointsType(CommandContext& given,
                                           const zk_spline::interpolationType& type)
    : context(&given)
    , nodes(eligibleRecords(given))
    , newType(type)
{
    for (const NodeStruct* node : std::as_const(nodes)) {
        const QList<KeyRef> selected = selectedKeysOf(*context, node);
        QList<zk_spline::interpolationType> types;
        for (const KeyRef& point : selected) {
            types.append(point.key->type);
            sameType = sameType && point.key->type == newType;
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
        for (const KeyRef& point : membersOf(spline, points[node])) {
            spline->setType(point.key, newType);
        }
    }
    context->report(nodes);
    return true;
}

void CommandSetPointsType::undo()
{
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        SplineBase* const spline = nodes[node]->livingSpline();
        for (qsizetype i = 0; spline && i < points[node].size(); ++i) {
            if (spline->holds(points[node][i])) {
                spline->setType(points[node][i].key, oldTypes[node][i]);
            }
        }
    }
    context->report(nodes);
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
