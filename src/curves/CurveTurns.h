#pragma once

#include "graphs/EvaluatedCurve.h"

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
    /// Gives the variable the value that it had in an earlier turn of the curve whose turn it is.
    /// False if there is none.
    static bool answers(CurveVariable& variable, const Moment& moment);
    /// In further turns the variable has this value.
    static void remember(const CurveVariable& variable, const KnownValue& answer);
    /// Makes the curve whose turn it is wait for the variable. False if no curve takes turns.
    static bool waitsFor(CurveVariable& variable, const Moment& moment);

private:
    struct Turn
    {
        Turn(CurveVariable& variable, const Moment& moment);

        CurveVariable& variable;
        EvaluatedCurve curve;
        std::vector<CurveVariable*> coming; ///< last one first; what the curve waits for
        CurveVariable* wanted = nullptr;    ///< what it missed in this turn
        std::unordered_map<const CurveVariable*, KnownValue> answers;
    };

    static Turn* present();
    CurveVariable* nextToCome(Turn& turn) const;
    void endTurn(const double& number);

    static CurveTurns* innermost;

    Moment moment = {};
    std::deque<Turn> turns; ///< each waits for the next
    CurveTurns* outer;      ///< the next one in the nest; not owned
};

} // namespace curve_editor
