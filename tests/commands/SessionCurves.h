#pragma once

#include "support/EditorFixture.h"
#include "support/SplineState.h"

#include "commands/Chance.h"

#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

/// What a curve holds.
struct CurveState
{
    SplineState spline;
    std::optional<std::string> expression;
    /// False once a reset has taken the expression for good: then nothing is said of it here.
    bool isExpressionKnown = true;
    /// False in steps of before the host put other keys there: nothing is said of the curve then.
    bool isKnown = true;

    /// The mark of an added expression says nothing where there is none.
    bool agreesWith(const CurveState& actual) const
    {
        if (!isKnown) {
            return true;
        }
        if (!isExpressionKnown || (!expression && !actual.expression)) {
            return spline.hasSameShape(actual.spline);
        }
        return spline == actual.spline && expression == actual.expression;
    }

    /// An expression, or the mark of one, which may be left over from one that was lost.
    bool hasExpressionPart() const { return expression || spline.isAddFunc(); }

    std::string text() const
    {
        return "{keys" + spline.text() + ", expression " + expression.value_or("none") +
               (spline.isAddFunc() ? ", added}" : "}");
    }
};

/// What all curves of a session hold.
using State = std::vector<CurveState>;

/// What a host lends to the editors of a session, and the chance that rules it. The last two names
/// stand for one spline and one expression.
class SessionCurves : public Chance
{
public:
    explicit SessionCurves(const unsigned& seed)
        : Chance(seed)
    {
        for (std::size_t i = 0; i < splineCount; ++i) {
            lent.push_back(newCurve());
        }
        lent[1]->setExpression("t*2");
        lent[1]->spline.setAddFunc(true);
        lent[4]->setExpression("sin(t)");
    }

    int anyCurve() { return below(names.size()); }

    std::unique_ptr<LentCurve> newCurve()
    {
        auto curve = std::make_unique<LentCurve>();
        for (int key = 0; key < 4; ++key) {
            curve->addKey(number(), number());
        }
        return curve;
    }

    /// Null once the host has destroyed it.
    std::unique_ptr<LentCurve>& contentOf(const int& curve) { return lent[splineOf(curve)]; }

    /// The number of the spline that a curve shows.
    static std::size_t splineOf(const int& curve)
    {
        return qMin(static_cast<std::size_t>(curve), splineCount - 1);
    }

    QString nodeOf(const int& curve) const { return names[curve].section('.', 0, 0); }
    QString curveOf(const int& curve) const { return names[curve].section('.', 1); }

    /// Keys ascend in time, and none is a key of two splines.
    bool keysAreSound() const
    {
        std::unordered_set<const PointInfo*> seen;
        for (const auto& curve : lent) {
            const PointInfo* previous = nullptr;
            const auto keys = curve ? curve->spline.getControlPoints() : std::vector<PointInfo*>();
            for (const PointInfo* key : keys) {
                if (!seen.insert(key).second || (previous && previous->time > key->time)) {
                    return false;
                }
                previous = key;
            }
        }
        return true;
    }

    State state() const
    {
        State all;
        for (const auto& curve : lent) {
            CurveState& entry = all.emplace_back();
            if (curve) {
                entry.spline = SplineState(curve->spline);
            }
            if (curve && curve->expression) {
                entry.expression = curve->expression->getString();
            }
        }
        return all;
    }

    static constexpr std::size_t splineCount = 5;
    /// Other curves' expressions name the two of w.
    QStringList names{"n.aa", "n.bb.cc", "w.x", "w.y", "m.dd", "m.ee"};
    std::vector<std::unique_ptr<LentCurve>> lent;
};
