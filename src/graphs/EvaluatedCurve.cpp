#include "graphs/EvaluatedCurve.h"

#include "core/EvaluationTime.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace curve_editor {

namespace {

constexpr unsigned long long always = std::numeric_limits<unsigned long long>::max();

EvaluatedCurve* innermost = nullptr;
EvaluatedCurve* innermostAsked = nullptr;
unsigned long long lastOrder = 0;

/// The values of rings that are still being worked out. They are not owned; null where one has
/// been destroyed meanwhile.
std::vector<CurveValue*>& openValues()
{
    static auto* const values = new std::vector<CurveValue*>; // outlives static editors
    return *values;
}

std::shared_ptr<CurveRing> whole(std::shared_ptr<CurveRing> ring)
{
    while (ring && ring->joined) {
        ring = ring->joined;
    }
    return ring;
}

/// The ring as a whole; null for one of an earlier evaluation.
std::shared_ptr<CurveRing> present(const std::shared_ptr<CurveRing>& ring)
{
    auto found = whole(ring);
    return found && found->epoch == EvaluationTime::epoch() ? found : nullptr;
}

/// Two whole rings as one; either may be null.
std::shared_ptr<CurveRing> joined(const std::shared_ptr<CurveRing>& a,
                                  const std::shared_ptr<CurveRing>& b)
{
    if (a && b && a != b) {
        a->beingEvaluated += b->beingEvaluated;
        b->joined = a;
    }
    return a ? a : b;
}

} // namespace

EvaluatedCurve::EvaluatedCurve(CurveValue& curveValue, const Moment& valueMoment)
    : value(&curveValue)
    , moment(valueMoment)
    , order(++lastOrder)
    , until(always)
    , firstOpen(openValues().size())
    , ring(present(curveValue.ring))
    , outer(innermost)
    , outerAsked(innermostAsked)
{
    value->evaluation = this;
    if (ring) {
        ++ring->beingEvaluated;
    }
    innermost = this;
}

EvaluatedCurve::EvaluatedCurve(const SplineBase* askedSpline,
                               const FunctionFloatBase* askedExpression)
    : spline(askedSpline)
    , expression(askedExpression)
    , order(++lastOrder)
    , until(always)
    , firstOpen(openValues().size())
    , outer(innermost)
    , outerAsked(innermostAsked)
{
    innermost = this;
    innermostAsked = this;
}

EvaluatedCurve::~EvaluatedCurve()
{
    innermost = outer;
    innermostAsked = outerAsked;
    if (ring) {
        --whole(ring)->beingEvaluated;
    }
    if (value) {
        value->evaluation = nullptr;
    }
    if (until < order) {
        dependOn(until);
    } else {
        closeRing();
    }
}

KnownValue EvaluatedCurve::finish(const double& number)
{
    const bool isOpen = until < order;
    const KnownValue known = {number, EvaluationTime::epoch(), moment, order,
                              isOpen ? until : always};
    if (!value) {
        return known;
    }
    value->number = number;
    if (isOpen) {
        value->open.add(known);
        openValues().push_back(value);
    } else {
        value->settled.add(known);
    }
    return known;
}

/// What was worked out inside of this evaluation and hangs on it is good no longer.
void EvaluatedCurve::closeRing()
{
    std::vector<CurveValue*>& open = openValues();
    if (open.size() <= firstOpen) {
        return;
    }
    const auto first = open.begin() + static_cast<std::ptrdiff_t>(firstOpen);
    const auto last = std::remove(first, open.end(), nullptr);
    auto closed = value ? present(value->ring) : nullptr;
    for (auto member = first; member != last; ++member) {
        (*member)->open.clear();
        closed = joined(closed, present((*member)->ring));
    }
    if (value) {
        closed = closed ? closed
                        : std::make_shared<CurveRing>(CurveRing{EvaluationTime::epoch(), 0, {}});
        value->ring = closed;
        std::for_each(first, last, [&](CurveValue* member) { member->ring = closed; });
    }
    open.resize(firstOpen);
}

bool EvaluatedCurve::isInnermost() const
{
    return innermost == this;
}

void EvaluatedCurve::dependOn(const unsigned long long& evaluation)
{
    if (innermost) {
        innermost->until = std::min(innermost->until, evaluation);
    }
}

unsigned long long EvaluatedCurve::closing(const CurveValue& value, const SplineBase* spline,
                                           const FunctionFloatBase* expression)
{
    if (value.evaluation) {
        return value.evaluation->order;
    }
    const EvaluatedCurve* asked = innermostAsked;
    while (asked && (asked->expression != expression || asked->spline != spline)) {
        asked = asked->outerAsked;
    }
    return asked && expression ? asked->order : 0;
}

const KnownValue* EvaluatedCurve::known(const CurveValue& value, const Moment& moment)
{
    const unsigned long long epoch = EvaluationTime::epoch();
    if (const KnownValue* open = value.open.at(epoch, moment)) {
        return open;
    }
    const KnownValue* settled = value.settled.at(epoch, moment);
    if (!settled) {
        return nullptr;
    }
    // From within its ring the curve has another value.
    const auto ring = present(value.ring);
    const bool isWithin = ring && ring->beingEvaluated > 0;
    const bool mayBeWithin = ring && innermostAsked && settled->order < innermostAsked->order;
    return isWithin || mayBeWithin ? nullptr : settled;
}

bool EvaluatedCurve::isAnyEvaluated()
{
    return innermost != nullptr;
}

void EvaluatedCurve::forget(CurveValue& value)
{
    std::vector<CurveValue*>& open = openValues();
    std::replace(open.begin(), open.end(), &value, static_cast<CurveValue*>(nullptr));
    for (EvaluatedCurve* curve = innermost; curve; curve = curve->outer) {
        if (curve->value == &value) {
            curve->value = nullptr;
        }
    }
}

} // namespace curve_editor
