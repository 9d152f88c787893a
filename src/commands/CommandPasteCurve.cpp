#include "commands/CommandPasteCurve.h"

#include "commands/CommandContext.h"
#include "commands/CommandSelectPoints.h"
#include "commands/RecordExpression.h"
#include "commands/RecordKeys.h"
#include "core/SplineBase.h"
#include "curves/CurveNode.h"
#include "curves/EditingSet.h"
#include "curves/NodeStruct.h"

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

CommandPasteCurve::CommandPasteCurve(CurveEditor* editor, CurveNode* clipboard,
                                     const double& offset, const bool& onlyKeys)
    : CommandPasteCurve(contextOf(editor), clipboard, offset, onlyKeys)
{}

CommandPasteCurve::CommandPasteCurve(CommandContext& given, CurveNode* clipboard,
                                     const double& offset, const bool& onlyKeys)
    : context(&given)
    , targets(recordsOf(given, given.editingSet().curves()))
    , source(std::make_unique<SplineBase>())
    , contents(given)
    , keysOnly(onlyKeys)
    , selectCommand(std::make_unique<CommandSelectPoints>(given))
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
    context->report(targets);
    return true;
}

void CommandPasteCurve::undo()
{
    if (!contents.restoreCurveContent(CurveContents::oldCurves)) {
        return;
    }
    selectCommand->undo();
    context->report(targets);
}

void CommandPasteCurve::redo()
{
    if (!placePasted()) {
        return;
    }
    selectCommand->redo();
    context->report(targets);
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

/// False if nothing of the context is left after a box.
bool CommandPasteCurve::placePasted()
{
    if (!contents.restoreCurveContent(CurveContents::newCurves)) {
        return false;
    }
    if (!keysOnly) {
        return true;
    }
    for (qsizetype i = 0; i < pastedPoints.size(); ++i) {
        selectList(*context, contents.nodes().at(i), pastedPoints.at(i));
    }
    return true;
}

} // namespace curve_editor
