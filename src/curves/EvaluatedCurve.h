#pragma once

#include <array>
#include <cstddef>
#include <memory>

class FunctionFloatBase;
class SplineBase;

namespace curve_editor {

class EvaluatedCurve;

/// What "t", "f" and "fps" hold, in this order.
using Moment = std::array<double, 3>;

/// By bits, so that not a number is the same time as itself.
bool isSameMoment(const Moment& a, const Moment& b);

/// Curves that depend on one another, as they were found from the one that was asked.
struct CurveRing
{
    int beingEvaluated = 0; ///< how many of them are at this moment
};

/// The value of a curve as expressions read it, and how far it is good.
struct CurveValue
{
    double number = 0.0;
    const EvaluatedCurve* evaluation = nullptr; ///< while it is worked out; not owned
    unsigned long long epoch = 0;               ///< of EvaluationTime; 0: there is no value
    Moment moment = {};
    unsigned long long order = 0; ///< grows with each evaluation of a curve
    /// The outermost evaluation, by its order, that must not have ended for the value to be good.
    unsigned long long earliest = none;
    std::shared_ptr<CurveRing> ring; ///< null for a curve that is in none

    static constexpr unsigned long long none = ~0ULL;
};

/// A curve whose value is being worked out, for as long as the object lives. Objects nest as the
/// evaluations do.
///
/// Curves may depend on one another in a ring. The mention that closes it, of a curve that is being
/// worked out already, reads 0. What was worked out with such a 0 is good only until the curve by
/// which the ring was entered is done: asked by itself it may have another value. Thus a curve has
/// one value at each time, whichever curve is asked and whatever was asked before.
///
/// The rings are found on the way, as Tarjan finds the strongly connected parts of a graph.
class EvaluatedCurve
{
public:
    /// A curve that is read by its name. From now on the value, which is not owned, is 0.
    EvaluatedCurve(CurveValue& value, const Moment& moment);
    /// A curve that is asked by itself: mentions of the curve made of these two read 0.
    /// Neither is owned.
    EvaluatedCurve(const SplineBase* spline, const FunctionFloatBase* expression);
    ~EvaluatedCurve();
    EvaluatedCurve(const EvaluatedCurve&) = delete;
    EvaluatedCurve& operator=(const EvaluatedCurve&) = delete;

    /// Keeps what was worked out; the last thing before the end.
    void finish(const double& number);

    bool isInnermost() const;

    /// What is being worked out depends on a curve as it stood at evaluation number `order`.
    static void dependOn(const unsigned long long& order);

    /// The evaluation that a mention of this curve would come round to; 0 for none.
    static unsigned long long closedBy(const CurveValue& value, const SplineBase* spline,
                                       const FunctionFloatBase* expression);
    /// The value may be read as it is.
    static bool isGood(const CurveValue& value, const Moment& moment);
    /// To be called before a value is destroyed.
    static void forget(CurveValue& value);

private:
    void closeRing();

    CurveValue* value = nullptr;
    const SplineBase* spline = nullptr;
    const FunctionFloatBase* expression = nullptr;
    Moment moment = {};
    unsigned long long order;
    unsigned long long earliest;     ///< the outermost evaluation that this one depends on
    std::size_t firstOpen;           ///< where the values begin that are good until this one ends
    std::shared_ptr<CurveRing> ring; ///< to be left at the end
    EvaluatedCurve* outer;           ///< the next one in the nest; not owned
    EvaluatedCurve* outerAsked;      ///< the next one that was asked by itself; not owned
};

} // namespace curve_editor
