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
        if (next->closingEvaluation() != 0 || turn.answers.count(next) > 0) {
            continue;
        }
        const KnownValue* known = EvaluatedCurve::known(next->value, moment);
        if (!known) {
            return next;
        }
        turn.answers[next] = *known;
    }
    return nullptr;
}

void CurveTurns::endTurn(const double& number)
{
    const CurveVariable* const done = &turns.back().variable;
    const KnownValue answer = turns.back().curve.finish(number);
    turns.pop_back();
    if (!turns.empty()) {
        turns.back().answers[done] = answer;
    }
}

/// The turn whose curve is the one that is being worked out; null if that one takes no turns.
CurveTurns::Turn* CurveTurns::present()
{
    const bool isTurn =
        innermost && !innermost->turns.empty() && innermost->turns.back().curve.isInnermost();
    return isTurn ? &innermost->turns.back() : nullptr;
}

bool CurveTurns::isInterrupted()
{
    const Turn* turn = present();
    return turn && turn->wanted;
}

bool CurveTurns::answers(CurveVariable& variable, const Moment& now)
{
    const Turn* turn = present();
    if (!turn || !isSameMoment(now, innermost->moment)) {
        return false;
    }
    const auto answer = turn->answers.find(&variable);
    if (answer == turn->answers.end()) {
        return false;
    }
    variable.read(answer->second);
    return true;
}

void CurveTurns::remember(const CurveVariable& variable, const KnownValue& answer)
{
    Turn* turn = present();
    if (turn && isSameMoment(answer.moment, innermost->moment)) {
        turn->answers[&variable] = answer;
    }
}

bool CurveTurns::waitsFor(CurveVariable& variable, const Moment& now)
{
    Turn* turn = present();
    if (!turn || !isSameMoment(now, innermost->moment)) {
        return false;
    }
    turn->wanted = &variable;
    return true;
}

} // namespace curve_editor
