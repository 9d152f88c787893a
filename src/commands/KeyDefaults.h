#pragma once

#include "core/InterpolationType.h"

namespace curve_editor {

/// What a new key is like.
struct KeyDefaults
{
    zk_spline::interpolationType type = zk_spline::bezier;
    bool unifiedTangents = true;
};

} // namespace curve_editor
