#include "canvas/SelectedKeys.h"

#include "canvas/SplineCurveGraph.h"
#include "core/SplineBase.h"
#include "curves/CurveNode.h"
#include "curves/CurveType.h"

#include <algorithm>

namespace {

bool holds(SplineBase* spline, const PointInfo* key)
{
    return spline && spline->findIndex(key) >= 0;
}

} // namespace

SelectedKeys::SelectedKeys(const QList<CurveNode*>& editing)
    : curves(editing)
{}

bool SelectedKeys::mayRead(const ControlSplineNode& selection, const PointInfo* key) const
{
    return holds(selection.spline(), key) ||
           std::any_of(curves.cbegin(), curves.cend(),
                       [key](CurveNode* curve) { return holds(curve->spline(), key); });
}

QList<const PointInfo*> SelectedKeys::readable(const ControlSplineNode& selection) const
{
    QList<const PointInfo*> keys;
    for (const PointInfo* key : selection.selectedPoints) {
        if (mayRead(selection, key)) {
            keys.append(key);
        }
    }
    return keys;
}

void SelectedKeys::span(double& first, double& last) const
{
    first = 0.0;
    last = 0.0;
    bool isSet = false;
    for (CurveNode* curve : curves) {
        const SplineCurveGraph* graph =
            hasKeys(curve->curveType()) ? curve->splineGraph() : nullptr;
        if (!graph || !graph->selection().hasSelection()) {
            continue;
        }
        const ControlSplineNode& selection = graph->selection();
        const QList<PointInfo*>& keys = selection.selectedPoints;
        const auto isReadable = [&](const PointInfo* key) { return mayRead(selection, key); };
        const auto front = std::find_if(keys.cbegin(), keys.cend(), isReadable);
        if (front == keys.cend()) {
            continue;
        }
        const auto back = std::find_if(keys.crbegin(), keys.crend(), isReadable);
        first = isSet ? std::min(first, (*front)->time) : (*front)->time;
        last = isSet ? std::max(last, (*back)->time) : (*back)->time;
        isSet = true;
    }
}
