#include "commands/CommandResetCurves.h"

#include "commands/CommandContext.h"
#include "commands/CommandSelectPoints.h"
#include "commands/CurveContents.h"
#include "commands/RecordKeys.h"
#include "core/SplineBase.h"
#include "curves/CurveNode.h"
#include "curves/NodeStruct.h"

#include <QSet>

#include <utility>

namespace curve_editor {

CommandResetCurves::CommandResetCurves(CurveEditor* editor, const QList<NodeStruct*>& list)
    : CommandResetCurves(contextOf(editor), list)
{}

CommandResetCurves::CommandResetCurves(CommandContext& given, const QList<NodeStruct*>& list)
    : context(&given)
{
    QSet<const SplineBase*> splines;
    for (NodeStruct* node : list) {
        if (!node) {
            continue;
        }
        nodes.append(node);
        const SplineBase* const spline = node->livingSpline();
        if (spline && !splines.contains(spline)) {
            splines.insert(spline);
            saved.emplace_back();
            saved.back().node = node;
            saved.back().content = std::make_unique<SplineBase>();
        }
    }
}

CommandResetCurves::~CommandResetCurves() = default;

bool CommandResetCurves::execute()
{
    const bool isRedo = selectCommand != nullptr;
    if (!isRedo) {
        selectCommand = std::make_unique<CommandSelectPoints>(*context);
    }
    takeContents(isRedo);
    for (const NodeStruct* node : std::as_const(nodes)) {
        if (CurveNode* const curve = findCurveOf(*context, node)) {
            curve->reset();
        } else if (SplineBase* const spline = node->livingSpline()) {
            spline->reset();
        }
    }
    putBackFound();
    selectCommand->captureFinalState();
    context->reportEditingCurves();
    return true;
}

void CommandResetCurves::undo()
{
    QSet<const SplineBase*> changed;
    for (SavedSpline& entry : saved) {
        SplineBase* const spline = entry.node->livingSpline();
        if (!entry.contentInPlace && spline) {
            exchangeContents(*spline, *entry.content);
            entry.contentInPlace = true;
            changed.insert(spline);
        }
    }
    dropDepartedKeys(*context, changed);
    if (selectCommand) {
        selectCommand->undo();
    }
    context->reportEditingCurves();
}

void CommandResetCurves::redo()
{
    execute();
}

ZK_String CommandResetCurves::getDescription()
{
    return "Reset Curves";
}

/// The keys pass to this command, so that resetting a spline frees none of them.
void CommandResetCurves::takeContents(const bool& isRedo)
{
    QSet<const SplineBase*> changed;
    for (SavedSpline& entry : saved) {
        SplineBase* const spline = entry.node->livingSpline();
        if (entry.contentInPlace && spline) {
            if (isRedo) {
                entry.found = std::move(entry.content);
                entry.content = std::make_unique<SplineBase>();
            }
            entry.content->copyRefs(*spline);
            spline->clearCtrlPoints();
            entry.contentInPlace = false;
            changed.insert(spline);
        }
    }
    dropDepartedKeys(*context, changed);
}

/// What the host had put into an emptied spline comes back, for later steps may name it.
void CommandResetCurves::putBackFound()
{
    for (SavedSpline& entry : saved) {
        SplineBase* const spline = entry.node->livingSpline();
        if (entry.found && spline) {
            exchangeContents(*spline, *entry.found);
        }
        entry.found.reset();
    }
}

} // namespace curve_editor
