#include "commands/GestureKeys.h"

#include "commands/CommandContext.h"
#include "commands/EligibleCurves.h"
#include "core/SplineBase.h"
#include "curves/KeyRetiming.h"

#include <QtAlgorithms>

#include <utility>
#include <vector>

namespace curve_editor {

namespace {

QList<PointInfo*> copiesOf(const QList<KeyRef>& keys)
{
    QList<PointInfo*> copies;
    copies.reserve(keys.size());
    for (const KeyRef& key : keys) {
        copies.append(new PointInfo(*key.key));
    }
    return copies;
}

void freeCopies(QList<QList<PointInfo*>>& lists)
{
    for (const QList<PointInfo*>& list : std::as_const(lists)) {
        qDeleteAll(list);
    }
    lists.clear();
}

} // namespace

GestureKeys::GestureKeys(CommandContext& given)
    : context(&given)
    , nodes(eligibleRecords(given))
{
    for (const NodeStruct* node : std::as_const(nodes)) {
        keys.append(selectedKeysOf(given, node));
        before.append(copiesOf(keys.last()));
    }
}

GestureKeys::~GestureKeys()
{
    freeCopies(before);
    freeCopies(after);
}

bool GestureKeys::capture(const Comparison& isSame)
{
    freeCopies(after);
    dropDeparted();
    for (const QList<KeyRef>& list : std::as_const(keys)) {
        after.append(copiesOf(list));
    }
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        for (qsizetype i = 0; i < before[node].size(); ++i) {
            if (!isSame(*before[node][i], *after[node][i])) {
                return true;
            }
        }
    }
    return false;
}

void GestureKeys::applyBefore(const Writer& write)
{
    apply(before, write);
}

void GestureKeys::applyAfter(const Writer& write)
{
    apply(after, write);
}

void GestureKeys::report()
{
    context->report(nodes);
}

void GestureKeys::dropDeparted()
{
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        const SplineBase* const spline = nodes[node]->livingSpline();
        QList<KeyRef> keptKeys;
        QList<PointInfo*> keptCopies;
        for (qsizetype i = 0; i < keys[node].size(); ++i) {
            if (spline && spline->holds(keys[node][i])) {
                keptKeys.append(keys[node][i]);
                keptCopies.append(before[node][i]);
            } else {
                delete before[node][i];
            }
        }
        keys[node] = keptKeys;
        before[node] = keptCopies;
    }
}

void GestureKeys::apply(const PointLists& states, const Writer& write)
{
    const qsizetype count = qMin(nodes.size(), states.size());
    for (qsizetype node = 0; node < count; ++node) {
        SplineBase* const spline = nodes[node]->livingSpline();
        if (!spline) {
            continue;
        }
        std::vector<RetimedKey> held;
        std::vector<const PointInfo*> copies;
        for (qsizetype i = 0; i < keys[node].size(); ++i) {
            if (spline->holds(keys[node][i])) {
                held.push_back({keys[node][i].key, states[node][i]->time});
                copies.push_back(states[node][i]);
            }
        }
        retimeKeys(*spline, held);
        for (std::size_t i = 0; i < held.size(); ++i) {
            write(*held[i].key, *copies[i]);
        }
        if (!held.empty()) {
            spline->setChanged(true);
        }
    }
}

} // namespace curve_editor
