#include "commands/GestureKeys.h"

#include "commands/CommandContext.h"
#include "commands/RecordKeys.h"
#include "core/SplineBase.h"
#include "curves/KeyRetiming.h"

#include <algorithm>

namespace curve_editor {

GestureKeys::GestureKeys(CommandContext& given)
    : context(&given)
{
    for (NodeStruct* node : eligibleRecords(given)) {
        curves.push_back({node, {}});
        for (const KeyRef& key : selectedKeysOf(given, node)) {
            curves.back().keys.push_back({key, *key.key, *key.key});
        }
    }
}

bool GestureKeys::capture(const Comparison& isSame)
{
    dropDeparted();
    isCaptured = true;
    bool differs = false;
    for (Curve& curve : curves) {
        for (Key& key : curve.keys) {
            key.after = *key.live.key;
            differs = differs || !isSame(key.before, key.after);
        }
    }
    return differs;
}

void GestureKeys::applyBefore(const Writer& write)
{
    apply(&Key::before, write);
}

void GestureKeys::applyAfter(const Writer& write)
{
    if (isCaptured) {
        apply(&Key::after, write);
    }
}

void GestureKeys::report()
{
    QList<NodeStruct*> nodes;
    for (const Curve& curve : curves) {
        nodes.append(curve.node);
    }
    context->report(nodes);
}

void GestureKeys::dropDeparted()
{
    for (Curve& curve : curves) {
        const SplineBase* const spline = curve.node->livingSpline();
        const auto hasLeft = [spline](const Key& key) {
            return !spline || !spline->holds(key.live);
        };
        curve.keys.erase(std::remove_if(curve.keys.begin(), curve.keys.end(), hasLeft),
                         curve.keys.end());
    }
}

void GestureKeys::apply(PointInfo Key::*const state, const Writer& write)
{
    for (const Curve& curve : curves) {
        SplineBase* const spline = curve.node->livingSpline();
        if (!spline) {
            continue;
        }
        std::vector<RetimedKey> held;
        std::vector<const PointInfo*> copies;
        for (const Key& key : curve.keys) {
            if (spline->holds(key.live)) {
                held.push_back({key.live.key, (key.*state).time});
                copies.push_back(&(key.*state));
            }
        }
        if (held.empty()) {
            continue;
        }
        retimeKeys(*spline, held);
        for (std::size_t i = 0; i < held.size(); ++i) {
            write(*held[i].key, *copies[i]);
        }
        spline->setChanged(true);
    }
}

} // namespace curve_editor
