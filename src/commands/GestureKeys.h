#pragma once

#include "core/KeyRef.h"
#include "core/PointInfo.h"

#include <QList>

class SplineBase;

namespace curve_editor {

class CommandContext;
struct NodeStruct;

/// The keys that a gesture works on and their records before and after it. All lists stay in
/// step: one list a node, one copy a key.
class GestureKeys
{
public:
    /// Whether a gesture has left a key as it was.
    using Comparison = bool (*)(const PointInfo& before, const PointInfo& after);
    /// Writes what a copy holds, but for the time, into a key.
    using Writer = void (*)(PointInfo& key, const PointInfo& copy);

    /// Notes the selected keys of the curves being edited, as they are.
    explicit GestureKeys(CommandContext& context);
    ~GestureKeys();
    GestureKeys(const GestureKeys&) = delete;
    GestureKeys& operator=(const GestureKeys&) = delete;

    /// Notes the same keys as they are now; returns whether any is not the same. Keys that have
    /// left their spline in the meantime are dropped.
    bool capture(const Comparison& isSame);

    /// Gives the keys that their splines still hold their former or their later records.
    void applyBefore(const Writer& write);
    void applyAfter(const Writer& write);

    /// Tells the host that the curves of all nodes have changed.
    void report();

private:
    using PointLists = QList<QList<PointInfo*>>;

    void dropDeparted();
    void apply(const PointLists& states, const Writer& write);

    CommandContext* context;   ///< not owned
    QList<NodeStruct*> nodes;  ///< not owned: the catalogue's
    QList<QList<KeyRef>> keys; ///< the live keys, not owned
    PointLists before;         ///< owned copies
    PointLists after;          ///< owned copies; empty until the capture
};

} // namespace curve_editor
