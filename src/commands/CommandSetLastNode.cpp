#include "commands/CommandSetLastNode.h"

#include "commands/CommandContext.h"
#include "commands/RecordKeys.h"

#include <utility>

namespace curve_editor {

namespace {

void setBehaviour(const NodeStruct* node, const SplineBase::nodeType& type, const bool& isFirst)
{
    SplineBase* const spline = node->livingSpline();
    if (!spline) {
        return;
    }
    if (isFirst) {
        spline->setFirstNodeType(type);
    } else {
        spline->setLastNodeType(type);
    }
    spline->setChanged(true);
}

} // namespace

CommandSetLastNode::CommandSetLastNode(CurveEditor* editor, const SplineBase::nodeType& type,
                                       const bool& first)
    : CommandSetLastNode(contextOf(editor), type, first)
{}

CommandSetLastNode::CommandSetLastNode(CommandContext& given, const SplineBase::nodeType& type,
                                       const bool& first)
    : context(&given)
    , nodes(eligibleRecords(given))
    , newType(type)
    , isFirst(first)
{
    for (const NodeStruct* node : std::as_const(nodes)) {
        const SplineBase* const spline = node->livingSpline();
        const SplineBase::nodeType old = isFirst ? spline->firstNodeType() : spline->lastNodeType();
        oldTypes.append(old);
        sameType = sameType && old == newType;
    }
}

bool CommandSetLastNode::execute()
{
    if (!sameType) {
        for (const NodeStruct* node : std::as_const(nodes)) {
            setBehaviour(node, newType, isFirst);
        }
    }
    context->refresh();
    context->report(nodes);
    return !sameType;
}

void CommandSetLastNode::undo()
{
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        setBehaviour(nodes[node], oldTypes[node], isFirst);
    }
    context->report(nodes);
    context->refresh();
}

void CommandSetLastNode::redo()
{
    execute();
}

ZK_String CommandSetLastNode::getDescription()
{
    return isFirst ? "Set First Node Behaviour" : "Set Last Node Behaviour";
}

} // namespace curve_editor
