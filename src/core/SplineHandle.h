#pragma once

#include "core/SplineBase.h"

#include <memory>

namespace curve_editor {

/// A pointer to a spline of somebody else's, who may destroy it at any time.
class SplineHandle
{
public:
    SplineHandle() = default;
    explicit SplineHandle(SplineBase* target)
        : spline(target)
        , life(target ? target->watchLife() : std::weak_ptr<const void>())
    {}

    /// The spline; null when there is none or it has been destroyed.
    SplineBase* get() const { return life.expired() ? nullptr : spline; }

    /// There was a spline and it has been destroyed.
    bool isLost() const { return spline && life.expired(); }

private:
    SplineBase* spline = nullptr; ///< not owned
    std::weak_ptr<const void> life;
};

} // namespace curve_editor
