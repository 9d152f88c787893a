// How far keys reach, for fitting the view.

#include "canvas/CanvasFunctionBase.h"

#include "curves/CurveNode.h"
#include "curves/SelectedKeys.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"

#include <algorithm>

namespace {

/// The extents of some keys.
struct KeyBounds
{
    double minTime = 0.0;
    double maxTime = 0.0;
    double minValue = 0.0;
    double maxValue = 0.0;
    bool isEmpty = true;

    void include(const PointInfo* key)
    {
        minTime = isEmpty ? key->time : std::min(minTime, key->time);
        maxTime = isEmpty ? key->time : std::max(maxTime, key->time);
        minValue = isEmpty ? key->value : std::min(minValue, key->value);
        maxValue = isEmpty ? key->value : std::max(maxValue, key->value);
        isEmpty = false;
    }

    void write(double& x1, double& x2, double& y1, double& y2) const
    {
        x1 = minTime;
        x2 = maxTime;
        y1 = minValue;
        y2 = maxValue;
    }
};

void shiftCentreTo(const double& centre, double& low, double& high)
{
    const double shift = centre - ((high - low) * 0.5 + low);
    low += shift;
    high += shift;
}

} // namespace

bool CanvasFunctionBase::curvesBounds(double& x1, double& x2, double& y1, double& y2) const
{
    if (!hasKeys(editingType())) {
        return false;
    }
    KeyBounds bounds;
    std::size_t keyCount = 0;
    for (CurveNode* curve : editing) {
        SplineBase* spline = curve->spline();
        if (!spline) {
            continue;
        }
        for (const PointInfo* key : spline->getControlPoints()) {
            bounds.include(key);
            ++keyCount;
        }
    }
    if (keyCount == 1) {
        // A single key has no extents: the range keeps its size and moves onto the key.
        shiftCentreTo(bounds.minTime, x1, x2);
        shiftCentreTo(bounds.minValue, y1, y2);
    } else if (keyCount > 1) {
        bounds.write(x1, x2, y1, y2);
    }
    return keyCount > 0;
}

bool CanvasFunctionBase::selectionBounds(double& x1, double& x2, double& y1, double& y2) const
{
    KeyBounds bounds;
    const SelectedKeys selectedKeys(editing.curves());
    const PointInfo* singleKey = nullptr;
    int singleSelections = 0;
    for (SplineCurveGraph* graph : editableGraphs()) {
        if (!graph->selection().hasSelection()) {
            continue;
        }
        const QList<const PointInfo*> selected = selectedKeys.readable(graph->selection());
        if (selected.size() == 1) {
            singleKey = selected.first();
            ++singleSelections;
        }
        for (const PointInfo* key : selected) {
            bounds.include(key);
        }
    }
    // Curves with several selected keys do not count beside one with a single key.
    if (singleSelections == 1) {
        shiftCentreTo(singleKey->time, x1, x2);
        shiftCentreTo(singleKey->value, y1, y2);
    } else if (!bounds.isEmpty) {
        bounds.write(x1, x2, y1, y2);
    }
    return bounds.isEmpty;
}
