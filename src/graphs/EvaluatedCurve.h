#pragma once

#include "graphs/KnownValues.h"

#include <cstddef>
#include <memory>

class FunctionFloatBase;
class SplineBase;

namespace curve_editor {

class EvaluatedCurve;

/// Curves that were found to depend on one another.
struct CurveRing
{
    unsigned long long epoch;          ///< of EvaluationTime
    int beingEvaluated = 0;            ///< how many of the curves are at present
    std::shared_ptr<CurveRing> joined; ///< the ring that this one has become part of
};

/// The value of a curve as expressions read it, and what is known of it.
struct CurveValue
{
    double number = 0.0;                        ///< what is read
    const EvaluatedCurve* evaluation = nullptr; ///< while it is worked out; not owned
    KnownValues settled;                        ///< what the curve gives when it is asked by itself
    KnownValues open;                ///< what it gives while others of its ring are worked out
    std::shared_ptr<CurveRing> ring; ///< null for a curve that is in none
};

/// A curve whose value is being worked out, for as long as the object lives. Objects nest as the
/// evaluations do, and are numbered in their order.
///
/// Curves may depend on one another in a ring. The mention that closes it, of a curve that is being
/// worked out already, reads 0. What was worked out with such a 0 is good only until the curve by
/// which the ring was entered is done: asked by itself it may give another value. That other value
/// again is good for all but the curves of its ring. Thus a curve has one value at each time,
/// whichever curve is asked and whatever was asked before.
///
/// A refresh function may lead to other moments, and through them round a ring. So a ring is one at
/// all moments of an epoch, and a mention closes it whatever its moment.
///
/// The rings are found on the way, as Tarjan finds the strongly connected parts of a graph.
class EvaluatedCurve
{
public:
    /// A curve that is read by its name. The value is not owned.
    EvaluatedCurve(CurveValue& value, const Moment& moment);
    /// A curve that is asked by itself: mentions of the curve made of these two read 0.
    /// Neither is owned.
    EvaluatedCurve(const SplineBase* spline, const FunctionFloatBase* expression);
    ~EvaluatedCurve();
    EvaluatedCurve(const EvaluatedCurve&) = delete;
    EvaluatedCurve& operator=(const EvaluatedCurve&) = delete;

    /// Keeps what was worked out, and returns it; the last thing before the end.
    KnownValue finish(const double& number);

    bool isInnermost() const;

    /// What is being worked out is good only until the evaluation of this order ends.
    static void dependOn(const unsigned long long& evaluation);
    /// The evaluation that a mention of this curve would come round to; 0 for none.
    static unsigned long long closing(const CurveValue& value, const SplineBase* spline,
                                      const FunctionFloatBase* expression);
    /// What a mention may read at this moment; null if the value must be worked out.
    static const KnownValue* known(const CurveValue& value, const Moment& moment);
    /// Whether any curve is being worked out.
    static bool isAnyEvaluated();
    /// To be called before a value is destroyed.
    static void forget(CurveValue& value);

private:
    void closeRing();

    CurveValue* value = nullptr;
    const SplineBase* spline = nullptr;
    const FunctionFloatBase* expression = nullptr;
    Moment moment = {};
    unsigned long long order;
    unsigned long long until;        ///< the outermost evaluation that this one depends on
    std::size_t firstOpen;           ///< of the values that are good until this evaluation ends
    std::shared_ptr<CurveRing> ring; ///< that counts this evaluation
    EvaluatedCurve* outer;           ///< the next one in the nest; not owned
    EvaluatedCurve* outerAsked;      ///< the next one that was asked by itself; not owned
};

} // namespace curve_editor
