#pragma once

#include "curves/EvaluatedCurve.h"

#include <deque>
#include <unordered_map>
#include <vector>

namespace curve_editor {

class CurveVariable;

/// Evaluates curves that depend on one another with a stack of its own. A curve whose turn it is
/// may read one that is not worked out yet. Then its turn counts for nothing: it waits until the
/// other one is done, and has another turn. What comes out is what nested evaluation gives.
class CurveTurns
{
public:
    CurveTurns();
    ~CurveTurns();
    CurveTurns(const CurveTurns&) = delete;
    CurveTurns& operator=(const CurveTurns&) = delete;

    /// Gives the variable its value at the moment.
    void evaluate(CurveVariable& variable, const Moment& moment);

    /// The curve whose turn it is waits for another one already.
    static bool isInterrupted();
    /// A variable that is not worked out gets the value it has for the curve whose turn it is, or
    /// makes that one wait. False where no curve takes turns.
    static bool answers(CurveVariable& variable, const Moment& moment);

private:
    struct Answer
    {
        double number;
        unsigned long long earliest;
    };
    struct Turn
    {
        Turn(CurveVariable& variable, const Moment& moment);

        CurveVariable& variable;
        EvaluatedCurve curve;
        std::vector<CurveVariable*> coming; ///< last one first; what the curve waits for
        CurveVariable* wanted = nullptr;    ///< what it missed in this turn
        std::unordered_map<const CurveVariable*, Answer> known;
    };

    CurveVariable* nextToCome(Turn& turn) const;
    void endTurn(const double& number);

    static CurveTurns* innermost;

    Moment moment = {};
    std::deque<Turn> turns; ///< each waits for the next
    CurveTurns* outer;      ///< the next one in the nest; not owned
};

} // namespace curve_editor
