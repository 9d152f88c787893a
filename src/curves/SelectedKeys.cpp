#include "curves/SelectedKeys.h"

#include "core/SplineBase.h"
#include "curves/CurveNode.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"

#include <algorithm>

namespace {

bool holds(const SplineBase* spline, const KeyRef& key)
{
    return spline && spline->holds(key);
}

} // namespace

SelectedKeys::SelectedKeys(const QList<CurveNode*>& editing)
    : curves(editing)
{}

bool SelectedKeys::mayRead(const ControlSplineNode& selection, const KeyRef& key) const
{
    return holds(selection.spline(), key) ||
           std::any_of(curves.cbegin(), curves.cend(),
                       [&key](CurveNode* curve) { return holds(curve->spline(), key); });
}

QList<const PointInfo*> SelectedKeys::readable(const ControlSplineNode& selection) const
{
    QList<const PointInfo*> keys;
    for (const KeyRef& ref : selection.selectedKeys()) {
        if (mayRead(selection, ref)) {
            keys.append(ref.key);
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
        const QList<const PointInfo*> keys = readable(selection);
        if (keys.isEmpty()) {
            continue;
        }
        first = isSet ? std::min(first, keys.first()->time) : keys.first()->time;
        last = isSet ? std::max(last, keys.last()->time) : keys.last()->time;
        isSet = true;
    }
}
