#include "commands/CommandSelectPoints.h"

#include "commands/CommandContext.h"
#include "commands/RecordKeys.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace curve_editor {

namespace {

bool isSameSet(const QList<KeyRef>& before, const QList<KeyRef>& after)
{
    QSet<std::uint64_t> known;
    for (const KeyRef& key : before) {
        known.insert(key.serial);
    }
    return before.size() == after.size() &&
           std::all_of(after.cbegin(), after.cend(),
                       [&](const KeyRef& key) { return known.contains(key.serial); });
}

} // namespace

CommandSelectPoints::CommandSelectPoints(CurveEditor* editor)
    : CommandSelectPoints(contextOf(editor))
{}

CommandSelectPoints::CommandSelectPoints(CommandContext& given)
    : context(&given)
    , nodes(eligibleRecords(given))
{
    for (const NodeStruct* node : std::as_const(nodes)) {
        before.append(selectedKeysOf(*context, node));
    }
}

bool CommandSelectPoints::captureFinalState()
{
    after.clear();
    bool differs = false;
    for (qsizetype i = 0; i < nodes.size(); ++i) {
        after.append(selectedKeysOf(*context, nodes[i]));
        if (findCurveOf(*context, nodes[i])) {
            differs = differs || !isSameSet(before[i], after[i]);
        }
    }
    return differs;
}

bool CommandSelectPoints::execute()
{
    context->refresh();
    return true;
}

void CommandSelectPoints::undo()
{
    apply(before);
}

void CommandSelectPoints::redo()
{
    apply(after);
}

ZK_String CommandSelectPoints::getDescription()
{
    return "Select Control Points";
}

void CommandSelectPoints::apply(const QList<QList<KeyRef>>& lists)
{
    const qsizetype count = qMin(nodes.size(), lists.size());
    for (qsizetype i = 0; i < count; ++i) {
        selectList(*context, nodes[i], lists[i]);
    }
    context->refreshKeysDialog();
    context->refresh();
}

} // namespace curve_editor
