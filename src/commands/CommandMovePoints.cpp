#include "commands/CommandMovePoints.h"

#include "commands/CommandContext.h"
namespace curve_editor {

namespace {

/// A NaN differs from everything, itself included.
bool isSame(const PointInfo& a, const PointInfo& b)
{
    return a.time == b.time && a.value == b.value;
}

void write(PointInfo& key, const PointInfo& copy)
{
    key.value = copy.value;
}

} // namespace

CommandMovePoints::CommandMovePoints(CurveEditor* editor)
    : CommandMovePoints(contextOf(editor))
{}

CommandMovePoints::CommandMovePoints(CommandContext& context)
    : keys(context)
{}

bool CommandMovePoints::captureFinalState()
{
    return keys.capture(isSame);
}

bool CommandMovePoints::execute()
{
    keys.report(); // the gesture has done the rest
    return true;
}

void CommandMovePoints::undo()
{
    keys.applyBefore(write);
    keys.report();
}

void CommandMovePoints::redo()
{
    keys.applyAfter(write);
    keys.report();
}

ZK_String CommandMovePoints::getDescription()
{
    return "Move Control Points";
}

} // namespace curve_editor
