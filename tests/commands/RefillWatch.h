#pragma once

#include "commands/SessionEditor.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <vector>

/// Watches the keys that a host has put into splines anew. Steps of before such a refill name none
/// of them, even where they lie at the addresses of keys that are gone: undone and redone, those
/// steps leave each fresh key as it is, and select none. Whole contents may be exchanged, and then
/// all fresh keys leave together.
class RefillWatch
{
public:
    explicit RefillWatch(SessionCurves& sessionCurves)
        : curves(sessionCurves)
    {}

    /// All keys of this spline are fresh from now on.
    void refilled(const std::size_t& spline)
    {
        fresh[spline].clear();
        newborn(spline);
        before[spline].isValid = false; // a step that is under way may end as it likes
    }

    /// Keys that commands add later are as unknown to the steps before the refill, but for commands
    /// that may have begun before it.
    void executed(const std::set<std::size_t>& refilledMeanwhile)
    {
        for (std::size_t spline = 0; spline < fresh.size(); ++spline) {
            if (!fresh[spline].empty() && refilledMeanwhile.count(spline) == 0) {
                newborn(spline);
            }
        }
    }

    /// To be called before each step of undo and redo.
    void noteKeys(SessionEditor& session)
    {
        for (std::size_t spline = 0; spline < fresh.size(); ++spline) {
            forgetDeparted(spline);
            before[spline] = look(session, spline);
        }
    }

    /// What is wrong after the step, if it is older than the refills of these splines.
    std::string differences(SessionEditor& session, const std::set<std::size_t>& splines,
                            const std::string& label)
    {
        std::string text;
        for (const std::size_t& spline : splines) {
            const Sight after = look(session, spline);
            const std::string name = ": the keys that the host put into spline " +
                                     std::to_string(spline) + " later are ";
            if (!before[spline].isValid) {
                continue;
            }
            const bool haveLeft = exchangesContents(label) && after.keys.empty();
            if (after.keys != before[spline].keys && !haveLeft) {
                text += label + name + "changed";
            }
            if (!std::includes(before[spline].selected.begin(), before[spline].selected.end(),
                               after.selected.begin(), after.selected.end())) {
                text += label + name + "selected";
            }
        }
        return text;
    }

    /// Whether a selection names a fresh key of this spline.
    bool areSelected(SessionEditor& session, const std::size_t& spline)
    {
        return !look(session, spline).selected.empty();
    }

private:
    struct Sight
    {
        std::vector<std::pair<const PointInfo*, SplineState::Bits>> keys; ///< in their order
        std::set<const PointInfo*> selected;
        bool isValid = false;
    };

    static bool exchangesContents(const std::string& label)
    {
        static const std::set<std::string> labels{"Load Curve", "Reset Curves", "Delete Curves",
                                                  "Paste Curve", "Paste Control Points"};
        return labels.count(label) != 0;
    }

    SplineBase* splineAt(const std::size_t& spline)
    {
        return curves.lent[spline] ? &curves.lent[spline]->spline : nullptr;
    }

    void newborn(const std::size_t& spline)
    {
        if (SplineBase* const keys = splineAt(spline)) {
            fresh[spline].insert(keys->getControlPoints().begin(), keys->getControlPoints().end());
        }
    }

    /// A key that has left may be freed, and another lie at its address: it is watched no more.
    void forgetDeparted(const std::size_t& spline)
    {
        SplineBase* const keys = splineAt(spline);
        for (auto key = fresh[spline].begin(); key != fresh[spline].end();) {
            key = keys && keys->findIndex(*key) >= 0 ? std::next(key) : fresh[spline].erase(key);
        }
    }

    Sight look(SessionEditor& session, const std::size_t& spline)
    {
        Sight sight;
        sight.isValid = true;
        SplineBase* const keys = splineAt(spline);
        if (!keys) {
            return sight;
        }
        for (const PointInfo* key : keys->getControlPoints()) {
            if (fresh[spline].count(key) != 0) {
                sight.keys.emplace_back(key, SplineState::bitsOf(*key));
            }
        }
        for (CurveNode* top : session.logic().topNodes()) {
            for (CurveNode* curve : top->curves()) {
                if (curve->spline() == keys) {
                    for (const PointInfo* key : curve->splineGraph()->selection().heldPoints()) {
                        if (fresh[spline].count(key) != 0) {
                            sight.selected.insert(key);
                        }
                    }
                }
            }
        }
        return sight;
    }

    SessionCurves& curves;
    std::array<std::set<const PointInfo*>, SessionCurves::splineCount> fresh;
    std::array<Sight, SessionCurves::splineCount> before;
};
