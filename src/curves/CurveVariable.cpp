#include "curves/CurveVariable.h"

#include "core/EvaluationTime.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/KeyValue.h"
#include "core/SplineBase.h"
#include "curves/CurveEvaluation.h"
#include "curves/CurveType.h"
#include "curves/NodeStruct.h"

#include <cstring>
#include <unordered_map>

namespace curve_editor {

namespace {

const int doubleKind = 3;

/// How many curves may be evaluated from inside of one another before their dependencies are
/// worked out from a list: the stack must bear any chain of curves.
const int deepestNesting = 50;
int nesting = 0;

/// The variables of the process by the address of their value, which the parser's keys carry.
using Variables = std::unordered_map<const void*, CurveVariable*>;

Variables& variables()
{
    static auto* const all = new Variables; // outlives editors that are static objects
    return *all;
}

double keyValue(const char* name)
{
    return readKeyValue(FunctionParserBase::instance()->getKey(name));
}

} // namespace

CurveVariable::CurveVariable(const NodeStruct* curve)
    : record(curve)
{
    variables().emplace(&value, this);
    registerName();
}

CurveVariable::~CurveVariable()
{
    FunctionParserBase::instance()->unregisterKey(registeredName, &value);
    variables().erase(&value);
}

void CurveVariable::rename()
{
    FunctionParserBase::instance()->unregisterKey(registeredName, &value);
    registerName();
}

void CurveVariable::registerName()
{
    registeredName = parserForm(record->dotName).toLocal8Bit().toStdString();
    FunctionParserBase::instance()->registerKey(registeredName, doubleKind, &value,
                                                [this] { refresh(); });
}

void CurveVariable::refresh()
{
    const EvaluationTime evaluation; // so that there is one around, and an epoch
    const Moment moment = {keyValue("t"), keyValue("f"), keyValue("fps")};
    if (isEvaluating || isUpToDate(moment)) {
        return;
    }
    if (nesting < deepestNesting) {
        isEvaluating = true;
        evaluate(moment);
    } else {
        evaluateWithDependencies(moment);
    }
}

/// Compares bits, so that not a number is the same time as itself.
bool CurveVariable::isUpToDate(const Moment& moment) const
{
    return epochOfValue != 0 && epochOfValue == EvaluationTime::epoch() &&
           // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison)
           std::memcmp(moment.data(), momentOfValue.data(), sizeof(Moment)) == 0;
}

/// Ends what the caller began by setting isEvaluating.
void CurveVariable::evaluate(const Moment& moment)
{
    ++nesting;
    const SplineBase* spline = record->livingSpline();
    const FunctionFloatBase* expression = record->livingExpression();
    const int type = typeOfCurve(spline, expression);
    double sum = 0.0;
    if (spline && hasKeys(type)) {
        sum += (*spline)(moment[0]);
    }
    if (expression && type != splineCurve) {
        sum += expression->value();
    }
    value = clampToLimits(sum, record->minValue, record->maxValue);
    epochOfValue = EvaluationTime::epoch();
    momentOfValue = moment;
    isEvaluating = false;
    --nesting;
}

/// Walks what this variable depends on in post order, with a stack of its own, so that each curve
/// finds all that it reads evaluated.
void CurveVariable::evaluateWithDependencies(const Moment& moment)
{
    struct Step
    {
        CurveVariable* variable;
        std::vector<CurveVariable*> coming;
    };
    std::vector<Step> steps;
    const auto enter = [&](CurveVariable* variable) {
        if (!variable->isEvaluating && !variable->isUpToDate(moment)) {
            variable->isEvaluating = true;
            steps.push_back({variable, variable->dependencies()});
        }
    };
    enter(this);
    while (!steps.empty()) {
        std::vector<CurveVariable*>& coming = steps.back().coming;
        if (coming.empty()) {
            steps.back().variable->evaluate(moment);
            steps.pop_back();
        } else {
            CurveVariable* next = coming.back();
            coming.pop_back();
            enter(next);
        }
    }
}

/// The curves that the record's expression reads.
std::vector<CurveVariable*> CurveVariable::dependencies() const
{
    std::vector<CurveVariable*> found;
    const FunctionFloatBase* expression = record->livingExpression();
    for (const auto* key : FunctionParserBase::instance()->getAllVars(expression)) {
        const auto known = variables().find(key->value);
        if (known != variables().end()) {
            found.push_back(known->second);
        }
    }
    return found;
}

} // namespace curve_editor
