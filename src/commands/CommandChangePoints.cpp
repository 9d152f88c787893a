#include "commands/CommandChangePoints.h"

#include "commands/CommandContext.h"
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

void write(PointInfo& key, const PointInfo& copy)
{
    key = copy; // the time is the same already
}

} // namespace

CommandChangePoints::CommandChangePoints(CurveEditor* editor)
    : CommandChangePoints(contextOf(editor))
{}

CommandChangePoints::CommandChangePoints(CommandContext& context)
    : keys(context)
{}

bool CommandChangePoints::captureFinalState()
{
    return keys.capture(isSame);
}

bool CommandChangePoints::execute()
{
    keys.report(); // the gesture has done the rest
    return true;
}

void CommandChangePoints::undo()
{
    keys.applyBefore(write);
    keys.report();
}

void CommandChangePoints::redo()
{
    keys.applyAfter(write);
    keys.report();
}

ZK_String CommandChangePoints::getDescription()
{
    return "Change Control Points Values";
}

} // namespace curve_editor
