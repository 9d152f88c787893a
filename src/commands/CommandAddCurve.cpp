#include "commands/CommandAddCurve.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "core/SplineBase.h"
#include "curves/CurveNode.h"
#include "curves/DottedName.h"
#include "editor/CurveEditor.h"

namespace curve_editor {

CommandAddCurve::CommandAddCurve(CurveEditor* curveEditor, const QString& node, const QString& name,
                                 const QColor& drawingColor, float givenValue,
                                 SplineBase* hostSpline, FunctionFloatBase** slot, float minimum,
                                 float maximum, const bool& select, const bool& notify)
    : editor(curveEditor)
    , nodeName(node)
    , curveName(name)
    , color(drawingColor)
    , curveValue(givenValue)
    , spline(hostSpline)
    , splineLife(hostSpline ? hostSpline->watchLife() : std::weak_ptr<const void>())
    , function(slot)
    , minValue(minimum)
    , maxValue(maximum)
    , previousSelection(curveEditor->getSelection())
    , notifyHost(notify)
    , selectByDefault(select)
{}

bool CommandAddCurve::execute()
{
    const QString name = DottedName(nodeName, curveName).text();
    const NodeStruct* const known = editor->searchAllNodeList(name);
    isNewRecord = !known;
    if (known && known->isSplineLost()) {
        addToCatalogue(); // lends the new spline
    }
    curve = CurveHold(editor->getFunctionEditor()->canvas().findLeaf(name));
    if (curve.get()) {
        if (selectByDefault) {
            editor->setDefaultSelected(nodeName, curveName);
        }
        return false;
    }
    addToCatalogue();
    if (wantsSelection()) {
        editor->setDefaultSelected(nodeName, curveName);
    }
    curve = CurveHold(editor->getFunctionEditor()->canvas().findLeaf(name));
    editor->emitSignalCurvesHaveChanged();
    return true;
}

void CommandAddCurve::undo()
{
    if (isNewRecord) {
        editor->removeCurve(nodeName, curveName);
    } else {
        editor->removeCurveFromEditing(DottedName(nodeName, curveName).text());
    }
    editor->selectNodes(previousSelection);
    editor->emitSignalCurvesHaveChanged();
}

void CommandAddCurve::redo()
{
    addToCatalogue();
    if (wantsSelection()) {
        editor->setDefaultSelected(nodeName, curveName, curve.get());
    }
    editor->emitSignalCurvesHaveChanged();
}

ZK_String CommandAddCurve::getDescription()
{
    return "Add Curve to Curve Editor";
}

void CommandAddCurve::addToCatalogue()
{
    editor->addNewMainNode(nodeName);
    editor->addNewNode(nodeName, curveName, color, curveValue, livingSpline(), livingSlot(),
                       minValue, maxValue, notifyHost);
}

/// A curve with neither a key nor an expression stays off the canvas.
bool CommandAddCurve::wantsSelection() const
{
    const SplineBase* const keys = livingSpline();
    FunctionFloatBase** const slot = livingSlot();
    const bool hasContent = (keys && keys->getControlPointsNumber() > 0) || (slot && *slot);
    return selectByDefault && hasContent;
}

SplineBase* CommandAddCurve::livingSpline() const
{
    return splineLife.expired() ? nullptr : spline;
}

/// Once the host has destroyed the spline its slot is left alone as well.
FunctionFloatBase** CommandAddCurve::livingSlot() const
{
    const bool splineIsLost = spline && splineLife.expired();
    return splineIsLost ? nullptr : function;
}

} // namespace curve_editor
