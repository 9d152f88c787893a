#pragma once

#include "core/ValueBounds.h"
#include "zk_curve_core_export.h"

#include <cstddef>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

class FunctionFloatBase;
class ParseMessage;
class SamplerGraphMaker;
class SamplerPlan;
struct SamplerCurve;
class SplineBase;

/// A curve as it is at one moment, for evaluation in any thread.
///
///     CurveSampler::Source source;
///     source.spline = &spline;              // read now, and not kept
///     source.text = "sin(t)*stage.wind";    // added if the spline's add func flag is set
///     source.fps = 25.0;
///     const CurveSampler::Pointer sampler =
///         CurveSampler::make(source, CurveSampler::named({{"stage.wind", 0.5}}));
///     ...
///     sampler->values(firstSecond, 1.0 / 25.0, frames, out); // in any number of threads
///
/// It never changes: edits of spline and expression do not reach it, and any number of threads
/// evaluate it at once, without a lock. Values are those of the live curve: of keys but for the
/// signs of zeros, of an expression to the bit.
///
/// Evaluation takes up to 48 KiB of the stack, beside what a host function takes. It allocates
/// nothing, but for curves that hold more than about 4,000 values at a time while they read one
/// another: these do so once a call. A host function that is bound must bear the calls of all
/// threads; what it throws reaches the caller.
class ZK_CURVE_CORE_EXPORT CurveSampler
{
public:
    using Pointer = std::shared_ptr<const CurveSampler>;

    /// What an expression knows of the time it is evaluated at.
    struct Moment
    {
        double time;  ///< seconds: "t"
        double frame; ///< "f", as EvaluationTime tells it
        double fps;   ///< frames per second: "fps"
    };

    /// What a name may stand for: a constant, a function of the host's of the time in seconds or of
    /// the moment, or another curve at the same moment, held within its limits. A function is asked
    /// once for each time, no matter how often and in which branch the name is mentioned.
    using Function = std::function<double(double time)>;
    using MomentFunction = std::function<double(const Moment& moment)>;
    using Binding = std::variant<double, Function, MomentFunction, Pointer>;

    /// Tells what a name stands for; nothing for a name that is not known, and so are an empty
    /// function and a null pointer. Asked only while a sampler is made: for a name as it is
    /// spelt, then in lower case (of ASCII letters). "t", "f" and "fps" are never asked for.
    using Bindings = std::function<std::optional<Binding>(const std::string& name)>;
    static Bindings named(std::map<std::string, Binding> bindings);

    /// What a sampler is made from. All of it is read while it is made, and nothing is kept.
    struct Source
    {
        /// Null for none. With its add func flag set the expression is added to it; else an
        /// expression counts alone.
        const SplineBase* spline = nullptr;
        /// A parsed expression; null for none.
        const FunctionFloatBase* expression = nullptr;
        /// An expression that is parsed here; empty for none. Left alone beside a parsed one.
        std::string text;
        /// Values are held within these; NaN passes.
        double minimum = -std::numeric_limits<double>::infinity();
        double maximum = std::numeric_limits<double>::infinity();
        /// Frames per second, for this curve and all that it reads.
        double fps = 10.0;
    };

    /// Null if the text has an error, names something unknown or nests too deep, if the expression
    /// holds nodes of foreign classes, or if samplers read one another deeper than 1,000. The
    /// message, which may be null, then tells, and is written in any case. A name in a parsed
    /// expression that is not known reads 0.
    ///
    /// Any thread may make samplers, as long as nobody edits spline or expression meanwhile. The
    /// parser of the process is not asked, nor are its variables.
    static Pointer make(const Source& source, const Bindings& bindings = Bindings(),
                        ParseMessage* message = nullptr);

    ~CurveSampler();
    CurveSampler(const CurveSampler&) = delete;
    CurveSampler& operator=(const CurveSampler&) = delete;

    /// The value at a time in seconds.
    double value(double time) const;

    /// The values at `count` times in any order; quickest where they ascend. `out` has room for as
    /// many and may be the array of the times itself, but not overlap it otherwise.
    void values(const double* times, double* out, std::size_t count) const;
    std::vector<double> values(const std::vector<double>& times) const;

    /// The values at first, first + step, first + 2 * step and so on, `count` of them.
    void values(double first, double step, std::size_t count, double* out) const;

    /// The slope in value per second. Of keys alone it is exact: at a key that of the segment which
    /// follows, at a jump that of what follows, and 0 where the value is held at a limit. With an
    /// expression it is taken from four values within a quarter of a millisecond (or, for times
    /// beyond 10,000 seconds, what such a time can tell apart): good for 9 digits where the
    /// expression is smooth.
    double derivative(double time) const;

    /// The lowest and the highest value between two times in seconds, both included, in either
    /// order. Of keys alone it is exact, and counts a value that the curve only comes up to at the
    /// foot or the head of a jump. With an expression it is that of 1,025 values evenly spaced and
    /// of those at the keys between, so a narrower peak may reach beyond. NaN where there is no
    /// number among the values, where a time is NaN, and with an expression where one is infinite.
    ValueBounds bounds(double from, double to) const;

    /// The times of the keys in seconds, ascending; none where an expression counts alone.
    const std::vector<double>& keyTimes() const;

    /// Frames per second.
    double fps() const;

    /// Names in the expression that nothing was bound to, each once, in the order of the text.
    const std::vector<std::string>& unboundNames() const;

private:
    friend class SamplerGraphMaker;
    friend class SamplerRig;

    CurveSampler(std::unique_ptr<const SamplerPlan> samplerPlan, double framesPerSecond);

    double slopeOfSamples(double time) const;
    ValueBounds boundsOfSamples(double from, double to) const;

    std::unique_ptr<const SamplerPlan> plan;
    const SamplerCurve* own; // of the plan
    double rate;
};
