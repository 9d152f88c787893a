#pragma once

namespace zk_spline {

/// How a key interpolates toward the next one. The numbers reach files and combo boxes; a value
/// that is none of these counts as linear.
enum interpolationType : int
{
    linear = 0,
    bezier = 1,
    tcb = 2,
    stepped = 3
};

} // namespace zk_spline
