#pragma once

#include "zk_curve_core_export.h"

#include <array>

/// Puts "t", "f" and "fps" to a moment for as long as it lives and restores them afterwards.
///
///     EvaluationTime moment(2.5, 24.0); // t = 2.5, f = 60, fps = 24
///     const double height = expression->value();
///
/// Objects nest: the one made last goes first.
class ZK_CURVE_CORE_EXPORT EvaluationTime
{
public:
    /// Keeps the present values and writes nothing yet.
    EvaluationTime();
    /// Keeps the present values and writes the moment: f is time * fps, and a whole number where
    /// nothing but rounding parts it from one. Time in seconds, fps in frames per second; any
    /// number will do.
    EvaluationTime(const double& time, const double& fps);
    ~EvaluationTime();
    EvaluationTime(const EvaluationTime&) = delete;
    EvaluationTime& operator=(const EvaluationTime&) = delete;

    /// Moves on to another moment; values seen before count as old.
    void set(const double& time, const double& fps);

    /// Leaves "t", "f" and "fps" as they are now: nothing is restored.
    void keep();

    /// What "t", "f" and "fps" hold, in this order.
    static std::array<double, 3> now();

    /// Grows with each outermost evaluation and with each other moment that it is made for, but not
    /// with the moments that refresh functions go to inside of it. A value worked out under the
    /// same number, at the same "t", "f" and "fps", is still good. 0 outside of any.
    static unsigned long long epoch();

private:
    double savedTime;
    double savedFrame;
    double savedFps;
    bool restores = true;
};
