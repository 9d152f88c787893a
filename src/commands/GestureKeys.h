#pragma once

#include "core/KeyRef.h"
#include "core/PointInfo.h"

#include <vector>

namespace curve_editor {

class CommandContext;
struct NodeStruct;

/// The keys that a gesture works on, and their records before and after it.
class GestureKeys
{
public:
    /// Whether a gesture has left a key as it was.
    using Comparison = bool (*)(const PointInfo& before, const PointInfo& after);
    /// Writes what a copy holds, but for the time, into a key.
    using Writer = void (*)(PointInfo& key, const PointInfo& copy);

    /// Notes the selected keys of the curves being edited, as they are.
    explicit GestureKeys(CommandContext& context);
    GestureKeys(const GestureKeys&) = delete;
    GestureKeys& operator=(const GestureKeys&) = delete;

    /// Notes the same keys as they are now; returns whether any is not the same. Keys that have
    /// left their spline in the meantime are dropped.
    bool capture(const Comparison& isSame);

    /// Gives the keys that their splines still hold their former or their later records; there are
    /// no later ones before a capture.
    void applyBefore(const Writer& write);
    void applyAfter(const Writer& write);

    /// Tells the host that the curves of all nodes have changed.
    void report();

private:
    /// A key and its records.
    struct Key
    {
        KeyRef live; ///< not owned
        PointInfo before;
        PointInfo after; ///< as it was captured
    };

    struct Curve
    {
        NodeStruct* node; ///< not owned: the catalogue's
        std::vector<Key> keys;
    };

    void dropDeparted();
    void apply(PointInfo Key::*const state, const Writer& write);

    CommandContext* context; ///< not owned
    std::vector<Curve> curves;
    bool isCaptured = false;
};

} // namespace curve_editor
