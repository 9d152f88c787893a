// Which keys are selected, and which lie under the mouse.

#include "canvas/CanvasFunctionBase.h"

#include "canvas/CanvasGestures.h"
#include "curves/CurveNode.h"
#include "curves/SelectedKeys.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"

#include <algorithm>

QList<SplineCurveGraph*> CanvasFunctionBase::editableGraphs() const
{
    return editing.editableGraphs();
}

SelectionState CanvasFunctionBase::selectionState() const
{
    SelectionState state;
    for (SplineCurveGraph* graph : editableGraphs()) {
        const ControlSplineNode& selection = graph->selection();
        if (selection.hasSelection()) {
            state.many = state.many || state.any || selection.selectedPoints.size() > 1;
            state.any = true;
        }
    }
    return state;
}

bool CanvasFunctionBase::hitKeys(const QPoint& pixel, bool& manySelected, bool& anySelected,
                                 bool& hitUnselected, bool& hitSelected, double& spanMin,
                                 double& spanMax, QList<PointInfo*>& hits)
{
    hits.clear();
    hitUnselected = false;
    hitSelected = false;
    for (CurveNode* curve : editing) {
        SplineCurveGraph* graph = hasKeys(curve->curveType()) ? curve->splineGraph() : nullptr;
        if (!graph) {
            hits.append(nullptr); // one entry a curve: the list stays in step with the curves
            continue;
        }
        PointInfo* hit = graph->hitTest(pixel);
        hits.append(hit);
        if (hit) {
            (graph->selection().isSelected(hit) ? hitSelected : hitUnselected) = true;
        }
    }

    SelectedKeys(editing.curves()).span(spanMin, spanMax);
    const SelectionState state = selectionState();
    anySelected = state.any;
    manySelected = state.many;
    const double time = gestures->stage.lastWorld.x();
    const bool isInSpan = !(time < spanMin) && !(time > spanMax);
    return !hitSelected && !hitUnselected && !isInSpan;
}

void CanvasFunctionBase::selectHits(const QList<PointInfo*>& hits)
{
    const qsizetype count = std::min(editing.size(), hits.size());
    for (qsizetype i = 0; i < count; ++i) {
        CurveNode* const curve = editing.curves()[i];
        if (hasKeys(curve->curveType()) && curve->splineGraph()) {
            curve->splineGraph()->selection().selectSinglePoint(hits[i]);
        }
    }
}

void CanvasFunctionBase::toggleHits(const QList<PointInfo*>& hits)
{
    const qsizetype count = std::min(editing.size(), hits.size());
    for (qsizetype i = 0; i < count; ++i) {
        CurveNode* const curve = editing.curves()[i];
        if (hasKeys(curve->curveType()) && curve->splineGraph()) {
            curve->splineGraph()->selection().togglePoint(hits[i]);
        }
    }
}

void CanvasFunctionBase::clearSelection()
{
    for (SplineCurveGraph* graph : editableGraphs()) {
        graph->selection().clear();
    }
}

void CanvasFunctionBase::selectInRect(const bool& add)
{
    const double xMin = std::min(view->newMinX, view->newMaxX);
    const double xMax = std::max(view->newMinX, view->newMaxX);
    const double yMin = std::min(view->newMinY, view->newMaxY);
    const double yMax = std::max(view->newMinY, view->newMaxY);
    view->rectValid = false;
    view->rectActive = false;
    for (SplineCurveGraph* graph : editableGraphs()) {
        graph->selectInRect(add, xMin, xMax, yMin, yMax);
    }
}

void CanvasFunctionBase::changeSelection(const std::function<void()>& change)
{
    gestures->run([](PendingCommands& commands) { commands.beginSelect(); }, change);
}

void CanvasFunctionBase::selectAllKeys()
{
    endGestures();
    changeSelection([this] {
        for (CurveNode* curve : editing) {
            SplineBase* spline = curve->spline();
            if (spline && curve->splineGraph()) {
                const std::vector<PointInfo*>& keys = spline->getControlPoints();
                curve->splineGraph()->selection().selectPoints(
                    QList<PointInfo*>(keys.begin(), keys.end()));
            }
        }
    });
}

void CanvasFunctionBase::deselectAllKeys()
{
    endGestures();
    changeSelection([this] { clearSelection(); });
}

void CanvasFunctionBase::walkSelection(const bool& forward)
{
    endGestures();
    // The first curve's keys lead, whichever curve's selection walks.
    SplineBase* leading = firstSpline();
    if (!leading) {
        return;
    }
    for (SplineCurveGraph* graph : keyContainers()) {
        ControlSplineNode& selection = graph->selection();
        if (!selection.hasSelection() || selection.selectedPoints.size() > 1) {
            continue;
        }
        const KeyRef current = selection.commandKeys().first();
        // After a step of several curves the key may be one of the leading curve's.
        if (!selection.spline()->holds(current) && !leading->holds(current)) {
            continue;
        }
        const double time = current.key->time;
        const PointInfo* next = forward ? leading->getNext(time) : leading->getPrev(time);
        const int index = next ? leading->findIndex(next) : -1;
        if (index >= 0) {
            selection.selectSingleKey(
                {leading->at(static_cast<unsigned>(index)), leading->keySerial(next)});
        }
    }
}
