#pragma once

#include "commands/SessionEditor.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>
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
        standing[spline] = keysOf(spline);
        fresh[spline] = standing[spline];
        before[spline].isValid = false; // a step that is under way may end as it likes
    }

    /// Keys that commands add later are as unknown to the steps before the refill, but for commands
    /// that may have begun before it.
    void executed(const std::set<std::size_t>& refilledMeanwhile)
    {
        for (std::size_t spline = 0; spline < fresh.size(); ++spline) {
            const KeySet former = std::exchange(standing[spline], keysOf(spline));
            if (!fresh[spline].empty() && refilledMeanwhile.count(spline) == 0) {
                std::set_difference(standing[spline].begin(), standing[spline].end(),
                                    former.begin(), former.end(),
                                    std::inserter(fresh[spline], fresh[spline].end()));
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
        for (std::size_t spline = 0; spline < standing.size(); ++spline) {
            standing[spline] = keysOf(spline);
        }
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
            if (after.selectsMoreThan(before[spline])) {
                text += label + name + "selected";
            }
        }
        return text;
    }

    /// Whether a selection names a fresh key of this spline.
    bool areSelected(SessionEditor& session, const std::size_t& spline)
    {
        return look(session, spline).selectsAny();
    }

private:
    using KeySet = std::set<const PointInfo*>;

    struct Sight
    {
        std::vector<std::pair<const PointInfo*, SplineState::Bits>> keys; ///< in their order
        std::map<const CurveNode*, KeySet> selected; ///< by curve on the canvas
        bool isValid = false;

        bool selectsAny() const
        {
            return std::any_of(selected.begin(), selected.end(),
                               [](const auto& entry) { return !entry.second.empty(); });
        }

        /// A curve that comes back to the canvas brings the selection along that it left with.
        bool selectsMoreThan(const Sight& former) const
        {
            return std::any_of(selected.begin(), selected.end(), [&](const auto& entry) {
                const auto known = former.selected.find(entry.first);
                return known != former.selected.end() &&
                       !std::includes(known->second.begin(), known->second.end(),
                                      entry.second.begin(), entry.second.end());
            });
        }
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

    KeySet keysOf(const std::size_t& spline)
    {
        SplineBase* const keys = splineAt(spline);
        return keys ? KeySet(keys->getControlPoints().begin(), keys->getControlPoints().end())
                    : KeySet();
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
                    KeySet& selected = sight.selected[curve];
                    for (const PointInfo* key : curve->splineGraph()->selection().heldPoints()) {
                        if (fresh[spline].count(key) != 0) {
                            selected.insert(key);
                        }
                    }
                }
            }
        }
        return sight;
    }

    SessionCurves& curves;
    std::array<KeySet, SessionCurves::splineCount> fresh;
    std::array<KeySet, SessionCurves::splineCount> standing; ///< after the last step
    std::array<Sight, SessionCurves::splineCount> before;
};
