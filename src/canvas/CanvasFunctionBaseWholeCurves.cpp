// What is done to whole curves: the clipboard, and resetting.

#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasHost.h"
#include "commands/CommandContext.h"
#include "commands/CommandPasteCurve.h"
#include "commands/CommandResetCurves.h"
#include "commands/CurveCommandsManager.h"
#include "commands/RecordKeys.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveVisit.h"
#include "files/CurveType.h"
#include "graphs/ViewPort.h"

#include <utility>

using curve_editor::CommandPasteCurve;
using curve_editor::CommandResetCurves;

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
        clipboard.copy(*source);
    }
}

void CanvasFunctionBase::copyKeys()
{
    if (CurveNodeBase* const source = copySource()) {
        clipboard.copySelected(*source);
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
    pasteClipboard(clipboard.offsetTo(view->timeLine), false);
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
    pasteClipboard(clipboard.offsetTo(view->timeLine), true);
}

void CanvasFunctionBase::pasteClipboard(const double& offset, const bool& keysOnly)
{
    endGestures();
    if (!editing.isEmpty() && clipboard.curve()) {
        host->manager().doCommand(
            new CommandPasteCurve(editor, clipboard.curve(), offset, keysOnly));
    }
}

void CanvasFunctionBase::resetEditingCurves()
{
    endGestures();
    if (!editing.isEmpty()) {
        host->manager().doCommand(new CommandResetCurves(
            editor, curve_editor::recordsOf(curve_editor::contextOf(editor), editing.curves())));
    }
}

void CanvasFunctionBase::resetAllCurves()
{
    endGestures();
    const QList<CurveNode*> tops = curveTree.topNodes();
    if (tops.isEmpty()) {
        return;
    }
    const CurveVisit visit(&curveTree);
    const QList<CurveNode*> former = editing.curves();
    QList<CurveNode*> all;
    for (CurveNode* top : tops) {
        all += top->curves();
    }
    selectCurveObjects(all);
    resetEditingCurves();
    // A slot of the host may have taken some of them away.
    QList<CurveNode*> staying;
    for (CurveNode* curve : former) {
        if (curveTree.isKnown(curve) && curveTree.isLinked(curve)) {
            staying.append(curve);
        }
    }
    selectCurveObjects(staying);
}
