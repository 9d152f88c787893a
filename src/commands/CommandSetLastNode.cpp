#include "commands/CommandSetLastNode.h"

#include "commands/EligibleCurves.h"
#include "editor/CurveEditor.h"

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

CommandSetLastNode::CommandSetLastNode(CurveEditor* curveEditor, const SplineBase::nodeType& type,
                                       const bool& first)
    : editor(curveEditor)
    , nodes(eligibleRecords(curveEditor))
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
    editor->refreshEditor();
    editor->emitSignalCurvesHaveChanged(nodes);
    return !sameType;
}

void CommandSetLastNode::undo()
{
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        setBehaviour(nodes[node], oldTypes[node], isFirst);
    }
    editor->emitSignalCurvesHaveChanged(nodes);
    editor->refreshEditor();
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
