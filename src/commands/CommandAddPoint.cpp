#include "commands/CommandAddPoint.h"

#include "commands/CommandContext.h"
#include "commands/RecordKeys.h"
#include "core/SplineBase.h"
#include "graphs/ControlSplineNode.h"

namespace curve_editor {

CommandAddPoint::CommandAddPoint(CurveEditor* editor, NodeStruct* record, const double& keyTime,
                                 const double& keyValue)
    : CommandAddPoint(contextOf(editor), record, keyTime, keyValue)
{}

CommandAddPoint::CommandAddPoint(CommandContext& given, NodeStruct* record, const double& keyTime,
                                 const double& keyValue)
    : context(&given)
    , node(record)
    , time(keyTime)
    , value(keyValue)
{
    if (const ControlSplineNode* const selection = selectionOf(*context, node)) {
        previousSelection = selection->selectedKeys();
    }
}

CommandAddPoint::~CommandAddPoint()
{
    if (!pointInSpline) {
        delete point.key;
    }
}

bool CommandAddPoint::execute()
{
    pointInSpline = false;
    SplineBase* const spline = node ? node->livingSpline() : nullptr;
    if (!spline) {
        return false;
    }
    const KeyDefaults defaults = context->keyDefaults();
    auto* const key = new PointInfo;
    key->time = time;
    key->value = value;
    key->type = defaults.type;
    key->unifiedTangents = defaults.unifiedTangents;
    point = {key, 0};
    putIn();
    report();
    context->refresh();
    return true;
}

void CommandAddPoint::undo()
{
    SplineBase* const spline = node ? node->livingSpline() : nullptr;
    if (pointInSpline) {
        if (spline && spline->holds(point)) {
            spline->take(point.key);
            dropDepartedKeys(*context, {spline});
        } else {
            point = KeyRef();
        }
        pointInSpline = false;
    }
    if (node && findCurveOf(*context, node)) {
        selectList(*context, node, previousSelection);
        report();
    }
    context->refresh();
}

void CommandAddPoint::redo()
{
    if (putIn()) {
        report();
    }
    context->refresh();
}

ZK_String CommandAddPoint::getDescription()
{
    return "Add New Control Point";
}

/// Gives the point to the spline and selects it; returns whether the curve is on the canvas.
bool CommandAddPoint::putIn()
{
    SplineBase* const spline = node->livingSpline();
    if (spline && point.key && !pointInSpline) {
        point = spline->addPointPtr(point.key, point.serial);
        pointInSpline = true;
    }
    ControlSplineNode* const selection = selectionOf(*context, node);
    if (selection && pointInSpline) {
        selectList(*context, node, {point});
    }
    return selection;
}

void CommandAddPoint::report()
{
    context->reportOne(node->mainNodeName, node->curveName);
}

} // namespace curve_editor
