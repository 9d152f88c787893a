// Fitting the view to keys.

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"

namespace {

constexpr double marginShare = 0.1;

void widen(double& low, double& high)
{
    const double margin = marginShare * (high - low);
    low -= margin;
    high += margin;
}

// The two tests are not alike: the horizontal one compares crosswise, so that fitting to an empty
// selection widens the view, and the vertical one straight, so that it leaves the view alone.
void widenAcross(ViewPort& view)
{
    if (!(view.newMaxX == view.minX && view.newMinX == view.maxX)) {
        widen(view.newMinX, view.newMaxX);
    }
}

void widenUp(ViewPort& view)
{
    if (!(view.newMinY == view.minY && view.newMaxY == view.maxY)) {
        widen(view.newMinY, view.newMaxY);
    }
}

} // namespace

void FunctionEditor::completeH()
{
    logic->endGesture(); // whose rectangle this would use
    if (logic->editingCurves().isEmpty()) {
        return;
    }
    candidateFromView();
    double lowest = minY;
    double highest = maxY;
    if (logic->curvesBounds(newMinX, newMaxX, lowest, highest)) {
        widenAcross(*this);
    }
    applyRect(false);
}

void FunctionEditor::completeV()
{
    logic->endGesture(); // whose rectangle this would use
    if (logic->editingCurves().isEmpty()) {
        return;
    }
    candidateFromView();
    double first = minX;
    double last = maxX;
    if (logic->curvesBounds(first, last, newMinY, newMaxY)) {
        widenUp(*this);
    }
    applyRect(false);
}

void FunctionEditor::completeSelH()
{
    logic->endGesture(); // whose rectangle this would use
    if (logic->editingCurves().isEmpty()) {
        return;
    }
    candidateFromView();
    double lowest = minY;
    double highest = maxY;
    logic->selectionBounds(newMinX, newMaxX, lowest, highest);
    widenAcross(*this);
    applyRect(false);
}

void FunctionEditor::completeSelV()
{
    logic->endGesture(); // whose rectangle this would use
    if (logic->editingCurves().isEmpty()) {
        return;
    }
    candidateFromView();
    double first = minX;
    double last = maxX;
    logic->selectionBounds(first, last, newMinY, newMaxY);
    widenUp(*this);
    applyRect(false);
}
