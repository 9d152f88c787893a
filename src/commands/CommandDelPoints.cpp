#include "commands/CommandDelPoints.h"

#include "commands/CommandContext.h"
#include "commands/RecordKeys.h"
#include "core/SplineBase.h"
#include "graphs/ControlSplineNode.h"

#include <algorithm>
#include <utility>

namespace curve_editor {

namespace {

void freeKeys(const QList<KeyRef>& keys)
{
    for (const KeyRef& key : keys) {
        delete key.key;
    }
}

} // namespace

CommandDelPoints::CommandDelPoints(CurveEditor* editor)
    : CommandDelPoints(contextOf(editor))
{}

CommandDelPoints::CommandDelPoints(CommandContext& given)
    : context(&given)
    , nodes(eligibleRecords(given))
{}

CommandDelPoints::~CommandDelPoints()
{
    if (pointsInSpline) {
        return;
    }
    for (const QList<KeyRef>& list : std::as_const(deleted)) {
        freeKeys(list);
    }
}

bool CommandDelPoints::execute()
{
    QStringList names;
    deleted.clear();
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        deleted.append(selectedKeysOf(*context, nodes[node]));
        if (!deleted[node].isEmpty()) {
            names.append(dotNameOf(*nodes[node]));
        }
        takeOut(node);
    }
    dropDeleted();
    pointsInSpline = names.isEmpty();
    context->report(names);
    return !names.isEmpty();
}

void CommandDelPoints::undo()
{
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        putBack(node);
    }
    pointsInSpline = true;
    context->report(nodes);
}

void CommandDelPoints::redo()
{
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        takeOut(node);
    }
    dropDeleted();
    pointsInSpline = false;
    context->report(nodes);
}

ZK_String CommandDelPoints::getDescription()
{
    return "Delete Control Points";
}

/// Takes a node's keys out of its spline and into the command's hands, but for those that are no
/// longer the spline's to give.
void CommandDelPoints::takeOut(const qsizetype& node)
{
    SplineBase* const spline = nodes[node]->livingSpline();
    deleted[node] = membersOf(spline, deleted[node]);
    // From the last key on: each moves up the keys behind it.
    const QList<KeyRef>& keys = deleted[node];
    std::for_each(keys.crbegin(), keys.crend(),
                  [spline](const KeyRef& key) { spline->take(key.key); });
    if (ControlSplineNode* const selection = selectionOf(*context, nodes[node])) {
        selection->clear();
    }
}

/// No other curve of the same splines may go on naming the keys.
void CommandDelPoints::dropDeleted()
{
    QSet<const SplineBase*> splines;
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        if (!deleted[node].isEmpty()) {
            splines.insert(nodes[node]->livingSpline());
        }
    }
    dropDepartedKeys(*context, splines);
}

/// Gives a node's keys back to its spline. If its host has destroyed the spline they end here.
void CommandDelPoints::putBack(const qsizetype& node)
{
    SplineBase* const spline = nodes[node]->livingSpline();
    if (!spline) {
        freeKeys(deleted[node]);
        deleted[node].clear();
        return;
    }
    for (const KeyRef& key : std::as_const(deleted[node])) {
        spline->addPointPtr(key.key, key.serial);
    }
    selectList(*context, nodes[node], deleted[node]);
}

} // namespace curve_editor
