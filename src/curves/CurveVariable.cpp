#include "curves/CurveVariable.h"

#include "core/CurveLimits.h"
#include "core/EvaluationTime.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/SplineBase.h"
#include "curves/CurveTurns.h"
#include "curves/NodeStruct.h"
#include "files/CurveType.h"

#include <unordered_map>
#include <utility>

namespace curve_editor {

namespace {

const int doubleKind = 3;

/// How many curves may be evaluated from inside of one another before they take turns: the stack
/// must bear any chain of curves.
const int deepestNesting = 50;
int nesting = 0;

/// One more curve inside of others, until it is evaluated or something is thrown.
class Nested
{
public:
    Nested() { ++nesting; }
    ~Nested() { --nesting; }
    Nested(const Nested&) = delete;
    Nested& operator=(const Nested&) = delete;
};

/// The variables of the process by the address of their value, which the parser's keys carry.
using Variables = std::unordered_map<const void*, CurveVariable*>;

Variables& variables()
{
    static auto* const all = new Variables; // outlives editors that are static objects
    return *all;
}

} // namespace

CurveVariable::CurveVariable(const NodeStruct* curve, const ParserScope* namesScope)
    : record(curve)
    , scope(namesScope)
{
    variables().emplace(&value.number, this);
    registerName();
}

CurveVariable::~CurveVariable()
{
    leave();
}

void CurveVariable::end(std::unique_ptr<CurveVariable> variable)
{
    static auto* const ended = new std::vector<std::unique_ptr<CurveVariable>>;
    variable->leave();
    ended->push_back(std::move(variable));
    if (!EvaluatedCurve::isAnyEvaluated()) {
        ended->clear();
    }
}

void CurveVariable::leave()
{
    if (!record) {
        return;
    }
    record = nullptr;
    FunctionParserBase::instance()->unregisterKey(registeredName, &value.number);
    variables().erase(&value.number);
    EvaluatedCurve::forget(value);
}

void CurveVariable::rename()
{
    FunctionParserBase::instance()->unregisterKey(registeredName, &value.number);
    registerName();
}

void CurveVariable::registerName()
{
    registeredName = parserForm(record->dotName).toLocal8Bit().toStdString();
    FunctionParserBase::instance()->registerGuardedKey(
        registeredName, doubleKind, &value.number, [this] { refresh(); }, scope);
}

void CurveVariable::refresh()
{
    if (CurveTurns::isInterrupted()) {
        return; // whatever is read, the curve will have another turn
    }
    const EvaluationTime evaluation; // so that there is one around, and an epoch
    const Moment now = EvaluationTime::now();
    if (const unsigned long long closing = closingEvaluation()) {
        EvaluatedCurve::dependOn(closing);
        value.number = 0.0;
    } else if (CurveTurns::answers(*this, now)) {
        return; // as in an earlier turn
    } else if (const KnownValue* known = EvaluatedCurve::known(value, now)) {
        read(*known);
        CurveTurns::remember(*this, *known);
    } else if (nesting < deepestNesting) {
        EvaluatedCurve curve(value, now);
        curve.finish(computed(now));
    } else if (!CurveTurns::waitsFor(*this, now)) {
        CurveTurns().evaluate(*this, now);
    }
}

void CurveVariable::read(const KnownValue& known)
{
    EvaluatedCurve::dependOn(known.until);
    value.number = known.number;
}

unsigned long long CurveVariable::closingEvaluation() const
{
    if (!record) {
        return 0;
    }
    return EvaluatedCurve::closing(value, record->livingSpline(), record->livingExpression());
}

double CurveVariable::computed(const Moment& now) const
{
    if (!record) {
        return 0.0;
    }
    const Nested nested;
    // The record may have left before its expression returns.
    const float lowest = record->minValue;
    const float highest = record->maxValue;
    const SplineBase* spline = record->livingSpline();
    const FunctionFloatBase* expression = record->livingExpression();
    const int type = typeOfCurve(spline, expression);
    double sum = 0.0;
    if (spline && hasKeys(type)) {
        sum += (*spline)(now[0]);
    }
    if (expression && type != splineCurve) {
        sum += expression->value();
    }
    return clampToLimits(sum, lowest, highest);
}

/// The curves that the record's expression is certain to read, in this order. Of one with a choice
/// in it none are: it may read them or not.
std::vector<CurveVariable*> CurveVariable::dependencies() const
{
    std::vector<CurveVariable*> found;
    const FunctionFloatBase* expression = record ? record->livingExpression() : nullptr;
    if (!expression || expression->getString().find("if(") != std::string::npos) {
        return found;
    }
    for (const auto* key : FunctionParserBase::instance()->getAllVars(expression)) {
        const auto known = variables().find(key->value);
        if (known != variables().end()) {
            found.push_back(known->second);
        }
    }
    return found;
}

} // namespace curve_editor
