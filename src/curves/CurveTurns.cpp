#include "curves/CurveTurns.h"

#include "curves/CurveVariable.h"

#include <algorithm>

namespace curve_editor {

CurveTurns* CurveTurns::innermost = nullptr;

CurveTurns::Turn::Turn(CurveVariable& turnsVariable, const Moment& turnsMoment)
    : variable(turnsVariable)
    , curve(turnsVariable.value, turnsMoment)
    , coming(turnsVariable.dependencies())
{
    std::reverse(coming.begin(), coming.end());
}

CurveTurns::CurveTurns()
    : outer(innermost)
{
    innermost = this;
}

/// Evaluations end in the order in which they nest, also when something is thrown.
CurveTurns::~CurveTurns()
{
    while (!turns.empty()) {
        turns.pop_back();
    }
    innermost = outer;
}

void CurveTurns::evaluate(CurveVariable& variable, const Moment& now)
{
    moment = now;
    turns.emplace_back(variable, moment);
    while (!turns.empty()) {
        Turn& turn = turns.back();
        if (CurveVariable* next = nextToCome(turn)) {
            turns.emplace_back(*next, moment);
            continue;
        }
        const double number = turn.variable.computed(moment);
        if (turn.wanted) {
            turn.coming.push_back(turn.wanted);
            turn.wanted = nullptr;
        } else {
            endTurn(number);
        }
    }
}

/// What the turn waits for and is not worked out yet; null once it need not wait.
CurveVariable* CurveTurns::nextToCome(Turn& turn) const
{
    while (!turn.coming.empty()) {
        CurveVariable* next = turn.coming.back();
        turn.coming.pop_back();
        const bool isNew = turn.known.find(next) == turn.known.end();
        if (isNew && next->closingEvaluation() == 0 &&
            !EvaluatedCurve::isGood(next->value, moment)) {
            return next;
        }
    }
    return nullptr;
}

void CurveTurns::endTurn(const double& number)
{
    CurveVariable& done = turns.back().variable;
    turns.back().curve.finish(number);
    turns.pop_back();
    if (!turns.empty()) {
        turns.back().known[&done] = {number, done.value.earliest};
    }
}

bool CurveTurns::isInterrupted()
{
    return innermost && !innermost->turns.empty() && innermost->turns.back().wanted &&
           innermost->turns.back().curve.isInnermost();
}

bool CurveTurns::answers(CurveVariable& variable, const Moment& now)
{
    if (!innermost || innermost->turns.empty() || !innermost->turns.back().curve.isInnermost() ||
        !isSameMoment(now, innermost->moment)) {
        return false;
    }
    Turn& turn = innermost->turns.back();
    const auto answer = turn.known.find(&variable);
    if (answer == turn.known.end()) {
        turn.wanted = &variable;
    } else {
        EvaluatedCurve::dependOn(answer->second.earliest);
        variable.value.number = answer->second.number;
    }
    return true;
}

} // namespace curve_editor
