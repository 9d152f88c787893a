#include "CurveState.h"

#include "CurveStore.h"

#include <core/FunctionFloatBase.h>

#include <algorithm>

CurveState::CurveState(const HostCurve& curve)
    : keys(keysOf(curve))
    , expression(curve.expression ? QString::fromStdString(curve.expression->getString())
                                  : QString())
    , added(curve.spline.isAddFunc())
    , first(static_cast<int>(curve.spline.firstNodeType()))
    , last(static_cast<int>(curve.spline.lastNodeType()))
{}

bool operator==(const CurveState& left, const CurveState& right)
{
    return sameKeys(left.keys, right.keys) && left.expression == right.expression &&
           left.added == right.added && left.first == right.first && left.last == right.last;
}

std::vector<CurveState> statesOf(const CurveStore& store)
{
    std::vector<CurveState> states;
    for (const QString& name : store.dotNames()) {
        states.emplace_back(*store.find(name));
    }
    return states;
}

bool sameKey(const PointInfo& left, const PointInfo& right)
{
    return left.time == right.time && left.value == right.value && left.type == right.type &&
           left.unifiedTangents == right.unifiedTangents &&
           left.bezier.tangentLeft == right.bezier.tangentLeft &&
           left.bezier.tangentRight == right.bezier.tangentRight &&
           left.tcb.tension == right.tcb.tension && left.tcb.continuity == right.tcb.continuity &&
           left.tcb.bias == right.tcb.bias && left.tcb.easeTo == right.tcb.easeTo &&
           left.tcb.easeFrom == right.tcb.easeFrom;
}

bool sameKeys(const std::vector<PointInfo>& left, const std::vector<PointInfo>& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), sameKey);
}

std::vector<PointInfo> keysOf(const HostCurve& curve)
{
    std::vector<PointInfo> copies;
    for (unsigned index = 0; index < curve.spline.getControlPointsNumber(); ++index) {
        copies.push_back(*curve.spline[index]);
    }
    return copies;
}

QString summary(const HostCurve& curve)
{
    const CurveState state(curve);
    QString text = QStringLiteral("%1 keys").arg(state.keys.size());
    if (!state.keys.empty()) {
        text += QStringLiteral(" from %1 s to %2 s")
                    .arg(state.keys.front().time, 0, 'f', 2)
                    .arg(state.keys.back().time, 0, 'f', 2);
    }
    if (!state.expression.isEmpty()) {
        text +=
            (state.added ? QStringLiteral(" + ") : QStringLiteral(" behind ")) + state.expression;
    }
    return text;
}
