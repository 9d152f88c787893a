// What is done to whole curves: the clipboard, and resetting.

#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasHost.h"
#include "canvas/CanvasVisit.h"
#include "canvas/SplineCurveGraph.h"
#include "canvas/ViewPort.h"
#include "commands/CommandPasteCurve.h"
#include "commands/CommandResetCurves.h"
#include "commands/CurveCommandsManager.h"
#include "commands/EligibleCurves.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveType.h"
#include "curves/DetachedCurve.h"

#include <utility>

using curve_editor::CommandPasteCurve;
using curve_editor::CommandResetCurves;
using curve_editor::DetachedCurve;

/// The only curve being edited, when it has keys; else null.
CurveNodeBase* CanvasFunctionBase::copySource() const
{
    if (editing.size() != 1 || !hasKeys(editingType()) || !editing.first()->spline()) {
        return nullptr;
    }
    return dynamic_cast<CurveNodeBase*>(editing.first());
}

void CanvasFunctionBase::copy()
{
    if (CurveNodeBase* const source = copySource()) {
        auto copied = std::make_unique<DetachedCurve>(*source);
        copied->spline()->copyDup(*source->spline(), 0.0);
        clipboard = std::move(copied);
    }
}

void CanvasFunctionBase::copyKeys()
{
    CurveNodeBase* const source = copySource();
    if (!source || !source->splineGraph()->selection().hasSelection()) {
        return;
    }
    auto copied = std::make_unique<DetachedCurve>(*source);
    copied->spline()->copySelected(*source->spline(),
                                   source->splineGraph()->selection().selectedPointsVector());
    // Another editor may have taken every selected key away.
    if (copied->spline()->getFirst()) {
        clipboard = std::move(copied);
    }
}

void CanvasFunctionBase::paste()
{
    pasteClipboard(0.0, false);
}

void CanvasFunctionBase::pasteOffset()
{
    pasteClipboard(view->timeLine, false);
}

void CanvasFunctionBase::pasteOnTimeline()
{
    pasteClipboard(offsetToTimeline(), false);
}

void CanvasFunctionBase::pasteKeys()
{
    pasteClipboard(0.0, true);
}

void CanvasFunctionBase::pasteKeysOffset()
{
    pasteClipboard(view->timeLine, true);
}

void CanvasFunctionBase::pasteKeysOnTimeline()
{
    pasteClipboard(offsetToTimeline(), true);
}

/// What moves the clipboard's first key onto the time line, in seconds.
double CanvasFunctionBase::offsetToTimeline() const
{
    const PointInfo* const first = clipboard ? clipboard->spline()->getFirst() : nullptr;
    return first ? view->timeLine - first->time : view->timeLine;
}

void CanvasFunctionBase::pasteClipboard(const double& offset, const bool& keysOnly)
{
    endGestures();
    if (!editing.isEmpty() && clipboard) {
        host->manager().doCommand(
            new CommandPasteCurve(editor, clipboard->curve(), offset, keysOnly));
    }
}

void CanvasFunctionBase::resetEditingCurves()
{
    endGestures();
    if (!editing.isEmpty()) {
        host->manager().doCommand(
            new CommandResetCurves(editor, curve_editor::recordsOf(editor, editing)));
    }
}

void CanvasFunctionBase::resetAllCurves()
{
    endGestures();
    if (tops.isEmpty()) {
        return;
    }
    const CanvasVisit visit(this);
    const QList<CurveNode*> former = editing;
    QList<CurveNode*> all;
    for (CurveNode* top : std::as_const(tops)) {
        all += top->curves();
    }
    selectCurveObjects(all);
    resetEditingCurves();
    // A slot of the host may have taken some of them away.
    QList<CurveNode*> staying;
    for (CurveNode* curve : former) {
        if (nodes.contains(curve) && isLinked(curve)) {
            staying.append(curve);
        }
    }
    selectCurveObjects(staying);
}
