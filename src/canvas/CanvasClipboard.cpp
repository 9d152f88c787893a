#include "canvas/CanvasClipboard.h"

#include "curves/CurveNodeBase.h"
#include "curves/DetachedCurve.h"
#include "graphs/SplineCurveGraph.h"

#include <utility>

using curve_editor::DetachedCurve;

CanvasClipboard::CanvasClipboard() = default;
CanvasClipboard::~CanvasClipboard() = default;

void CanvasClipboard::copy(CurveNodeBase& source)
{
    auto copied = std::make_unique<DetachedCurve>(source);
    copied->spline()->copyDup(*source.spline(), 0.0);
    content = std::move(copied);
}

void CanvasClipboard::copySelected(CurveNodeBase& source)
{
    const ControlSplineNode& selection = source.splineGraph()->selection();
    if (!selection.hasSelection()) {
        return;
    }
    auto copied = std::make_unique<DetachedCurve>(source);
    copied->spline()->copySelected(*source.spline(), selection.selectedPointsVector());
    // Another editor may have taken every selected key away.
    if (copied->spline()->getFirst()) {
        content = std::move(copied);
    }
}

CurveNode* CanvasClipboard::curve() const
{
    return content ? content->curve() : nullptr;
}

double CanvasClipboard::offsetTo(double time) const
{
    const PointInfo* const first = content ? content->spline()->getFirst() : nullptr;
    return first ? time - first->time : time;
}
