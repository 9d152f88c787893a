#include "commands/CommandSelectPoints.h"

#include "canvas/FunctionEditor.h"
#include "commands/EligibleCurves.h"
#include "editor/CurveEditor.h"

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

CommandSelectPoints::CommandSelectPoints(CurveEditor* curveEditor)
    : editor(curveEditor)
    , nodes(eligibleRecords(curveEditor))
{
    for (const NodeStruct* node : std::as_const(nodes)) {
        before.append(selectedKeysOf(editor, node));
    }
}

bool CommandSelectPoints::captureFinalState()
{
    after.clear();
    bool differs = false;
    for (qsizetype i = 0; i < nodes.size(); ++i) {
        after.append(selectedKeysOf(editor, nodes[i]));
        if (findCurveOf(editor, nodes[i])) {
            differs = differs || !isSameSet(before[i], after[i]);
        }
    }
    return differs;
}

bool CommandSelectPoints::execute()
{
    editor->refreshEditor();
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
        selectList(editor, nodes[i], lists[i]);
    }
    editor->getFunctionEditor()->refreshKeysDialog();
    editor->refreshEditor();
}

} // namespace curve_editor
