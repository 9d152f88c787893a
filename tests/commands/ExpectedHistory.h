#pragma once

#include "commands/SessionCurves.h"

#include <cstddef>
#include <deque>
#include <set>
#include <string>

/// What the curves hold below and above each command on the stacks of an editor, as long as
/// nothing but its commands changes them.
class ExpectedHistory
{
public:
    explicit ExpectedHistory(const State& start)
        : now(start)
        , before(start)
    {}

    /// Where the curves are not what is expected; empty when they are.
    std::string differenceTo(const State& actual) const
    {
        std::string difference;
        for (std::size_t i = 0; i < now.size(); ++i) {
            if (!now[i].agreesWith(actual[i])) {
                difference += "curve " + std::to_string(i) + " is " + actual[i].text() +
                              " instead of " + now[i].text() + "; ";
            }
        }
        return difference;
    }

    /// A command has run; its place on the stack is told by limit and switch.
    void executed(const std::string& label, const State& actual)
    {
        State above = actual;
        for (std::size_t i = 0; i < above.size(); ++i) {
            // Taking the mark alone takes no expression: one may stand there when it is redone.
            const bool isTakenHere = label != addFuncLabel && before[i].hasExpressionPart() &&
                                     !above[i].hasExpressionPart();
            above[i].isExpressionKnown = now[i].isExpressionKnown || isTakenHere;
        }
        if (isEnabled) {
            undone.clear();
            const bool isSecond = isSecondOfDrag(label, actual);
            const State below = isSecond ? done.back().below : now;
            if (limit > 0 && done.size() == limit) {
                done.pop_front();
            }
            if (limit > 0) {
                done.push_back({label, below, above, isSecond, {}});
                for (const std::size_t& curve : meanwhile) {
                    done.back().forget(curve);
                    if (isGesture) {
                        done.back().refilledSince.insert(curve);
                    }
                }
            }
        }
        now = std::move(above);
        before = actual;
    }

    void undid(const State& actual)
    {
        undone.push_back(std::move(done.back()));
        done.pop_back();
        Step& step = undone.back();
        before = actual;
        now = step.below;
        if (step.label == resetLabel) {
            for (std::size_t i = 0; i < now.size(); ++i) {
                if (step.below[i].hasExpressionPart() && !step.above[i].hasExpressionPart()) {
                    forget(i, actual, done, step.below);
                }
            }
        }
        takeAsItIs(actual);
    }

    void redid(const State& actual)
    {
        done.push_back(std::move(undone.back()));
        undone.pop_back();
        Step& step = done.back();
        before = actual;
        now = step.above;
        if (step.label == resetLabel) {
            // A curve that has left the canvas since loses nothing but its keys this time.
            for (std::size_t i = 0; i < now.size(); ++i) {
                if (step.below[i].hasExpressionPart() && !step.above[i].hasExpressionPart()) {
                    forget(i, actual, undone, step.above);
                }
            }
        }
        takeAsItIs(actual);
    }

    /// The host has put other keys into a curve, which stand. What was done to it before leads to
    /// nothing that could be told, and neither does what is under way.
    void refilled(const std::size_t& curve, const State& actual)
    {
        now[curve] = actual[curve];
        before[curve] = actual[curve];
        meanwhile.insert(curve);
        for (Stack* stack : {&done, &undone}) {
            for (Step& step : *stack) {
                step.forget(curve);
                step.refilledSince.insert(curve);
            }
        }
    }

    /// What begins from now on begins after all refills so far. Of a gesture all commands begin at
    /// its start, of anything else nobody knows which began before a refill and which after it.
    void nextStepBegins()
    {
        meanwhile.clear();
        isGesture = false;
    }
    void gestureBegins() { isGesture = true; }
    /// The curves that were refilled since then.
    const std::set<std::size_t>& refilledMeanwhile() const { return meanwhile; }

    /// The curves that were refilled after the next step of undo, or redo, was made.
    std::set<std::size_t> refilledAfterUndo() const { return refilledAfter(done); }
    std::set<std::size_t> refilledAfterRedo() const { return refilledAfter(undone); }

    void setLimit(const std::size_t& newLimit)
    {
        limit = newLimit;
        while (done.size() > limit) {
            done.pop_front();
        }
        while (undone.size() > limit) {
            undone.pop_front();
        }
    }

    void clear()
    {
        done.clear();
        undone.clear();
    }

    void setEnabled(const bool& on)
    {
        isEnabled = on;
        if (!on) {
            clear();
        }
    }

    /// Only the second step of a drag has been undone. Redoing the first would now move the key,
    /// whatever else is done meanwhile: a user goes back by both.
    bool isAmidDrag() const
    {
        return !undone.empty() && undone.back().isSecondOfDrag && !done.empty() &&
               done.back().label == "Move Control Points";
    }

    /// The labels of the steps that can be undone and redone next; empty where there is none.
    std::string nextUndo() const { return done.empty() ? std::string() : done.back().label; }
    std::string nextRedo() const { return undone.empty() ? std::string() : undone.back().label; }

private:
    struct Step
    {
        std::string label;
        State below;
        State above;
        bool isSecondOfDrag;
        std::set<std::size_t> refilledSince; ///< by number of curve

        void forget(const std::size_t& curve)
        {
            below[curve].isKnown = false;
            above[curve].isKnown = false;
        }
    };
    using Stack = std::deque<Step>;

    static std::set<std::size_t> refilledAfter(const Stack& stack)
    {
        return stack.empty() ? std::set<std::size_t>() : stack.back().refilledSince;
    }

    /// Where nothing is known the curve stands as it is. What can be redone began from something
    /// else, perhaps.
    void takeAsItIs(const State& actual)
    {
        for (std::size_t i = 0; i < now.size(); ++i) {
            if (!now[i].isKnown) {
                now[i] = actual[i];
                for (Step& step : undone) {
                    step.below[i].isKnown = false;
                    step.above[i].isKnown = false;
                }
            }
        }
    }

    /// The drag of one key makes two steps, for its place and for all of its fields. Both noted it
    /// before the drag, so undoing the second already leads there.
    bool isSecondOfDrag(const std::string& label, const State& actual) const
    {
        return label == "Change Control Points Values" && !done.empty() &&
               done.back().label == "Move Control Points" && differenceTo(actual).empty();
    }

    /// Nothing is said any more of one curve's expression, now and in the steps beyond.
    void forget(const std::size_t& curve, const State& actual, Stack& beyond, State& here)
    {
        if (here[curve].agreesWith(actual[curve])) {
            return;
        }
        now[curve].isExpressionKnown = false;
        here[curve].isExpressionKnown = false;
        for (Step& step : beyond) {
            step.below[curve].isExpressionKnown = false;
            step.above[curve].isExpressionKnown = false;
        }
    }

    static constexpr const char* resetLabel = "Reset Curves";
    static constexpr const char* addFuncLabel = "Add Spline to Expression";

    State now;                       ///< what is expected
    State before;                    ///< what there was after the last step
    Stack done;                      ///< what can be undone, the nearest last
    Stack undone;                    ///< what can be redone, the nearest last
    std::set<std::size_t> meanwhile; ///< the curves that were refilled in this step
    bool isGesture = false;
    std::size_t limit = 10;
    bool isEnabled = true;
};
