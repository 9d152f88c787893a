#include "commands/CommandPasteCurve.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/CommandSelectPoints.h"
#include "commands/EligibleCurves.h"
#include "commands/RecordExpression.h"
#include "core/SplineBase.h"
#include "curves/CurveNode.h"
#include "curves/NodeStruct.h"
#include "editor/CurveEditor.h"

#include <utility>

namespace curve_editor {

namespace {

/// Merges copies of the keys of `added` into `keys`, and returns the copies.
QList<KeyRef> combineKeys(SplineBase& keys, const SplineBase& added)
{
    QList<KeyRef> points;
    for (const PointInfo* point : keys.combine(added, 0.0)) {
        // A key of ours, shown as one to read.
        points.append({const_cast<PointInfo*>(point), keys.keySerial(point)});
    }
    return points;
}

} // namespace

CommandPasteCurve::CommandPasteCurve(CurveEditor* curveEditor, CurveNode* clipboard,
                                     const double& offset, const bool& onlyKeys)
    : editor(curveEditor)
    , targets(recordsOf(curveEditor, curveEditor->getFunctionEditor()->canvas().editingCurves()))
    , source(std::make_unique<SplineBase>())
    , contents(curveEditor)
    , keysOnly(onlyKeys)
    , selectCommand(std::make_unique<CommandSelectPoints>(curveEditor))
{
    if (const SplineBase* const keys = clipboard ? clipboard->spline() : nullptr) {
        source->copyDup(*keys, offset);
    }
}

CommandPasteCurve::~CommandPasteCurve() = default;

bool CommandPasteCurve::execute()
{
    if (source) {
        for (NodeStruct* node : std::as_const(targets)) {
            addTarget(node);
        }
        source.reset();
    }
    if (!placePasted()) {
        return true;
    }
    selectCommand->captureFinalState();
    editor->emitSignalCurvesHaveChanged(targets);
    return true;
}

void CommandPasteCurve::undo()
{
    if (!contents.restoreCurveContent(CurveContents::oldCurves)) {
        return;
    }
    selectCommand->undo();
    editor->emitSignalCurvesHaveChanged(targets);
}

void CommandPasteCurve::redo()
{
    if (!placePasted()) {
        return;
    }
    selectCommand->redo();
    editor->emitSignalCurvesHaveChanged(targets);
}

ZK_String CommandPasteCurve::getDescription()
{
    return keysOnly ? "Paste Control Points" : "Paste Curve";
}

/// A curve whose spline is gone is passed over.
void CommandPasteCurve::addTarget(NodeStruct* node)
{
    const SplineBase* const live = node->livingSpline();
    if (!live) {
        return;
    }
    auto keys = std::make_unique<SplineBase>();
    QList<KeyRef> pasted;
    if (keysOnly) {
        keys->copyDup(*live, 0.0);
        pasted = combineKeys(*keys, *source);
    } else {
        keys->copyDup(*source, 0.0);
    }
    keys->setAddFunc(live->isAddFunc()); // also of a sum whose slot is empty
    pastedPoints.append(pasted);
    const qsizetype place =
        contents.copyCurveForUndo(node, std::move(keys), expressionTextOf(node));
    pastedPoints.last() = pastedPoints.at(place);
}

/// False if the host has deleted the editor while a box was open.
bool CommandPasteCurve::placePasted()
{
    if (!contents.restoreCurveContent(CurveContents::newCurves)) {
        return false;
    }
    if (!keysOnly) {
        return true;
    }
    for (qsizetype i = 0; i < pastedPoints.size(); ++i) {
        selectList(editor, contents.nodes().at(i), pastedPoints.at(i));
    }
    return true;
}

} // namespace curve_editor
