#include "commands/CommandAddPoint.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/EligibleCurves.h"
#include "core/SplineBase.h"
#include "curves/ControlSplineNode.h"
#include "editor/CurveEditor.h"

namespace curve_editor {

CommandAddPoint::CommandAddPoint(CurveEditor* curveEditor, NodeStruct* record,
                                 const double& keyTime, const double& keyValue)
    : editor(curveEditor)
    , node(record)
    , time(keyTime)
    , value(keyValue)
{
    if (const ControlSplineNode* const selection = selectionOf(editor, node)) {
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
    const CanvasFunctionBase& canvas = editor->getFunctionEditor()->canvas();
    auto* const key = new PointInfo;
    key->time = time;
    key->value = value;
    key->type = static_cast<zk_spline::interpolationType>(canvas.defaultNodeType);
    key->unifiedTangents = !canvas.defaultBrokenTangent;
    point = {key, 0};
    putIn();
    report();
    editor->refreshEditor();
    return true;
}

void CommandAddPoint::undo()
{
    SplineBase* const spline = node ? node->livingSpline() : nullptr;
    if (pointInSpline) {
        if (spline && spline->holds(point)) {
            spline->take(point.key);
            dropDepartedKeys(editor, {spline});
        } else {
            point = KeyRef();
        }
        pointInSpline = false;
    }
    if (node && findCurveOf(editor, node)) {
        selectList(editor, node, previousSelection);
        report();
    }
    editor->refreshEditor();
}

void CommandAddPoint::redo()
{
    if (putIn()) {
        report();
    }
    editor->refreshEditor();
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
    ControlSplineNode* const selection = selectionOf(editor, node);
    if (selection && pointInSpline) {
        selectList(editor, node, {point});
    }
    return selection;
}

void CommandAddPoint::report()
{
    QString nodeName = node->mainNodeName;
    QString curveName = node->curveName;
    editor->emitSignalCurveHasChanged(nodeName, curveName);
}

} // namespace curve_editor
