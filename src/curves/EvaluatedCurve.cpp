#include "curves/EvaluatedCurve.h"

#include "core/EvaluationTime.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace curve_editor {

namespace {

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

} // namespace

bool isSameMoment(const Moment& a, const Moment& b)
{
    return std::memcmp(a.data(), b.data(), sizeof(Moment)) == 0;
}

EvaluatedCurve::EvaluatedCurve(CurveValue& curveValue, const Moment& valueMoment)
    : value(&curveValue)
    , moment(valueMoment)
    , order(++lastOrder)
    , earliest(order)
    , firstOpen(openValues().size())
    , ring(curveValue.ring)
    , outer(innermost)
    , outerAsked(innermostAsked)
{
    value->number = 0.0;
    value->epoch = 0;
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
    , earliest(order)
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
        --ring->beingEvaluated;
    }
    if (value) {
        value->evaluation = nullptr;
    }
    if (earliest < order) {
        dependOn(earliest);
    } else {
        closeRing();
    }
}

void EvaluatedCurve::finish(const double& number)
{
    if (!value) {
        return;
    }
    value->number = number;
    value->epoch = EvaluationTime::epoch();
    value->moment = moment;
    value->order = order;
    value->earliest = earliest < order ? earliest : CurveValue::none;
    if (earliest < order) {
        openValues().push_back(value);
    }
}

/// What was worked out from here on is good for nothing but this curve.
void EvaluatedCurve::closeRing()
{
    std::vector<CurveValue*>& open = openValues();
    const bool isRing = open.size() > firstOpen;
    const auto closed = isRing && value ? std::make_shared<CurveRing>() : nullptr;
    for (std::size_t i = firstOpen; i < open.size(); ++i) {
        if (open[i]) {
            open[i]->epoch = 0;
            open[i]->ring = closed;
        }
    }
    open.resize(std::min(firstOpen, open.size()));
    if (value) {
        value->ring = closed;
    }
}

bool EvaluatedCurve::isInnermost() const
{
    return innermost == this;
}

void EvaluatedCurve::dependOn(const unsigned long long& order)
{
    if (innermost) {
        innermost->earliest = std::min(innermost->earliest, order);
    }
}

unsigned long long EvaluatedCurve::closedBy(const CurveValue& value, const SplineBase* spline,
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

bool EvaluatedCurve::isGood(const CurveValue& value, const Moment& moment)
{
    if (value.epoch == 0 || value.epoch != EvaluationTime::epoch() ||
        !isSameMoment(value.moment, moment)) {
        return false;
    }
    const bool isOpen = value.earliest != CurveValue::none;
    if (isOpen || !value.ring) {
        return true;
    }
    // From within its ring the curve has another value.
    return value.ring->beingEvaluated == 0 &&
           (!innermostAsked || value.order > innermostAsked->order);
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
