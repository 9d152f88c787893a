// Which keys the dialog works on, and whether it still shows them.

#include "widgets/CurveKeysDialog.h"

#include "commands/CommandContext.h"
#include "core/SplineBase.h"
#include "curves/CurveNode.h"
#include "curves/EditingSet.h"
#include "curves/SelectedKeys.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"
#include "widgets/KeysDialogHost.h"

#include <QEvent>
#include <QSet>

using namespace curve_editor;

namespace {

/// How many keys are selected over the graphs.
struct SelectionCounts
{
    bool any = false;
    bool several = false;
    bool singleEach = true; ///< no graph has more than one

    SelectionCounts(const QList<SplineCurveGraph*>& graphs, const SelectedKeys& selected)
    {
        for (const SplineCurveGraph* const graph : graphs) {
            if (!graph || !graph->selection().hasSelection() ||
                selected.readable(graph->selection()).isEmpty()) {
                continue;
            }
            singleEach = graph->selection().selectedPoints.size() == 1;
            several = any || !singleEach;
            any = true;
            if (!singleEach) {
                break;
            }
        }
    }
};

} // namespace

void CurveKeysDialog::showSelection(const QList<SplineCurveGraph*>& graphs, bool enable)
{
    if (isGestureOfOtherKeys()) {
        endGesture(); // the host hears of that, and may remove curves
        showSelection(host->keyContainers(), enable);
        return;
    }
    const QList<CurveNode*> curves = host->context().editingSet().curves();
    const SelectionCounts counts(graphs, SelectedKeys(curves));
    if (!counts.any) {
        enableKeyFields(false);
        return;
    }
    if (enable) {
        if (!counts.several && graphs.size() == 1) {
            enableKeyFields(true);
        } else {
            enableSeveralKeys(counts.singleEach);
        }
    }
    loadKeys(graphs);
}

/// A curve may have left the canvas, and its graph be gone with it, since the graphs were shown.
QList<SplineCurveGraph*> CurveKeysDialog::editableGraphs() const
{
    QSet<SplineCurveGraph*> present;
    for (CurveNode* const curve : host->context().editingSet().curves()) {
        if (hasKeys(curve->curveType())) {
            present.insert(curve->splineGraph());
        }
    }
    present.remove(nullptr);
    QList<SplineCurveGraph*> graphs;
    for (SplineCurveGraph* const graph : shownGraphs) {
        if (present.contains(graph)) {
            graphs.append(graph);
        }
    }
    return graphs;
}

PointInfo* CurveKeysDialog::leadingKeyOf(SplineCurveGraph* graph)
{
    const ControlSplineNode& selection = graph->selection();
    if (!selection.hasSelection()) {
        return nullptr;
    }
    if (PointInfo* const current = selection.heldCurrent()) {
        return current;
    }
    const QList<PointInfo*> keys = selection.heldPoints();
    return keys.isEmpty() ? nullptr : keys.first();
}

QList<KeyRef> CurveKeysDialog::editableKeys() const
{
    QList<KeyRef> keys;
    for (SplineCurveGraph* const graph : editableGraphs()) {
        const ControlSplineNode& selection = graph->selection();
        for (const KeyRef& key : selection.selectedKeys()) {
            if (selection.spline() && selection.spline()->holds(key)) {
                keys.append(key);
            }
        }
    }
    return keys;
}

ShownKeys CurveKeysDialog::selectedKeys() const
{
    const QList<CurveNode*> curves = host->context().editingSet().curves();
    const SelectedKeys selected(curves);
    ShownKeys now;
    now.unit = host->timeUnit();
    bool hasReference = false;
    for (SplineCurveGraph* const graph : editableGraphs()) {
        const ControlSplineNode& selection = graph->selection();
        const PointInfo* const leading = leadingKeyOf(graph);
        if (!hasReference && leading) {
            hasReference = true;
            now.reference = *leading;
            now.index = selection.spline()->findIndex(leading);
        } else if (hasReference && selection.hasSelection()) {
            now.differences.index = true;
        } else {
            continue;
        }
        if (selection.selectedPoints.size() > 1) {
            now.differences.index = true;
            now.differences.fields[timeField] = true;
        }
        for (const KeyRef& key : selection.selectedKeys()) {
            if (selected.mayRead(selection, key)) {
                now.differences.add(now.reference, *key.key);
                now.keys.append(key);
            }
        }
    }
    return now;
}

/// A step knows the keys that were selected at its begin.
bool CurveKeysDialog::isGestureOfOtherKeys() const
{
    return (pendingChange || pendingMove) && pendingKeys != editableKeys();
}

bool CurveKeysDialog::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::KeyPress:
    case QEvent::Wheel:
        renewIfStale(false);
        break;
    case QEvent::FocusOut:
        renewIfStale(true);
        break;
    default:
        break;
    }
    return QDialog::eventFilter(watched, event);
}

/// What was typed is sent when its field loses the focus. That it stands for the right keys is all
/// that matters then: their other numbers may be what they like.
void CurveKeysDialog::renewIfStale(bool onlyForOthers)
{
    if (isShowing) {
        return;
    }
    const ShownKeys now = selectedKeys();
    if (now.keys.isEmpty() && shown.keys.isEmpty()) {
        return;
    }
    const bool areOthers = now.keys != shown.keys || now.unit != shown.unit;
    if (areOthers || (!onlyForOthers && !now.showsTheSameAs(shown))) {
        host->refreshKeysDialog();
    }
}
