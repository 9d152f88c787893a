// What the dialog shows, and which of its fields are open.

#include "widgets/CurveKeysDialog.h"

#include "canvas/FunctionEditor.h"
#include "canvas/SelectedKeys.h"
#include "canvas/SplineCurveGraph.h"
#include "core/SplineBase.h"
#include "curves/CurveNode.h"
#include "curves/CurveType.h"
#include "editor/CurveEditor.h"
#include "widgets/NodeTypePositions.h"

#include <QScopedValueRollback>
#include <QSet>

#include <utility>

using namespace curve_editor;

namespace {

/// Stands for several differing values; a field sends nothing when it is left with this text.
const QLatin1String severalValues("...");

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
    const QList<CurveNode*> curves = editor->getFunctionEditor()->canvas().editingCurves();
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

void CurveKeysDialog::enableKeyFields(const bool& on)
{
    const QScopedValueRollback<bool> guard(isShowing, true);
    prevNode->setEnabled(on);
    nextNode->setEnabled(on);
    nodeTypeCombo->setEnabled(on);
    node->clear();
    for (int field = 0; field < keyFieldsCount; ++field) {
        const bool isPosition = field == timeField || field == valueField;
        for (CustomEditLine* const line : linesOf(static_cast<keyFields>(field))) {
            line->setEnabled(on);
            if (!on && isPosition) {
                line->clear();
            }
        }
    }
    if (!on) {
        shownKeys.clear();
    }
}

/// Several keys of one curve can't take one time, and have no one neighbour.
void CurveKeysDialog::enableSeveralKeys(const bool& singleEach)
{
    const QScopedValueRollback<bool> guard(isShowing, true);
    prevNode->setEnabled(false);
    nextNode->setEnabled(false);
    nodeTypeCombo->setEnabled(true);
    for (int field = 0; field < keyFieldsCount; ++field) {
        for (CustomEditLine* const line : linesOf(static_cast<keyFields>(field))) {
            line->setEnabled(field != timeField || singleEach);
        }
    }
}

/// A curve may have left the canvas, and its graph be gone with it, since the graphs were shown.
QList<SplineCurveGraph*> CurveKeysDialog::editableGraphs() const
{
    QSet<SplineCurveGraph*> present;
    for (CurveNode* const curve : editor->getFunctionEditor()->canvas().editingCurves()) {
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

void CurveKeysDialog::loadKeys(const QList<SplineCurveGraph*>& graphs)
{
    const QScopedValueRollback<bool> guard(isShowing, true);
    shownGraphs = graphs;
    const QList<CurveNode*> curves = editor->getFunctionEditor()->canvas().editingCurves();
    const SelectedKeys selected(curves);
    const PointInfo* reference = nullptr;
    int index = -1;
    KeyDifferences differences;
    QList<KeyRef> keys;
    for (SplineCurveGraph* const graph : editableGraphs()) {
        const ControlSplineNode& selection = graph->selection();
        const PointInfo* const leading = leadingKeyOf(graph);
        if (!reference && leading) {
            reference = leading;
            index = selection.spline()->findIndex(leading);
        } else if (reference && selection.hasSelection()) {
            differences.index = true;
        } else {
            continue;
        }
        if (selection.selectedPoints.size() > 1) {
            differences.index = true;
            differences.fields[timeField] = true;
        }
        for (const KeyRef& key : selection.selectedKeys()) {
            if (selected.mayRead(selection, key)) {
                differences.add(*reference, *key.key);
                keys.append(key);
            }
        }
    }
    if (reference) {
        sameKeysShown = keys == shownKeys;
        shownKeys = keys;
        // A copy: closing a field ends the drag over it, and the host hears of that.
        showKeys(PointInfo(*reference), index, differences);
    }
}

void CurveKeysDialog::showKeys(const PointInfo& reference, const int& index,
                               const KeyDifferences& differences)
{
    node->setText(differences.index ? QStringLiteral("#") : QString::number(index));
    showPosition(reference, differences);
    for (int field = tensionField; field < keyFieldsCount; ++field) {
        const auto which = static_cast<keyFields>(field);
        showNumber(linesOf(which).first(), differences.fields[static_cast<std::size_t>(field)],
                   readField(reference, which));
    }
    if (differences.bezierMix) {
        for (CustomEditLine* const line : {tension, continuity, bias, incoming, outgoing}) {
            line->setEnabled(false);
        }
    }
    for (CustomEditLine* const line : {tension, continuity, bias}) {
        line->setBounds(-10.0, 10.0);
    }
    for (CustomEditLine* const line : {easeFrom, easeTo}) {
        line->setBounds(0.0, 1.0);
    }
    nodeTypeCombo->setCurrentIndex(positionOfNodeType(reference.type));
    nodeTypeWidgetStack->setCurrentWidget(reference.type == zk_spline::bezier ? ioPage : tcbPage);
    tcbCurve->showKey(reference);
}

void CurveKeysDialog::showPosition(const PointInfo& reference, const KeyDifferences& differences)
{
    if (differences.fields[timeField]) {
        showNumber(posX, true, 0.0);
        showText(editor->positionX(), posX->text());
    } else {
        setPosX(reference.time);
    }
    showNumber(posY, differences.fields[valueField], reference.value);
    showText(editor->positionY(), posY->text());
}

void CurveKeysDialog::setPosX(ZK_DOUBLE value)
{
    showNumber(posX, false, editor->isModeFrames() ? value * editor->getFps() : value);
    showText(editor->positionX(), posX->text());
}

void CurveKeysDialog::showNumber(CustomEditLine* line, const bool& differs, const double& value)
{
    if (isBeingTyped(line)) {
        return;
    }
    if (differs) {
        line->setText(severalValues);
        line->setToolTip(QString());
    } else {
        line->setValue(value);
    }
}

void CurveKeysDialog::showText(CustomEditLine* twin, const QString& text)
{
    if (!isBeingTyped(twin)) {
        twin->setText(text);
    }
}

/// A text that the user has begun stays, as long as the same keys are shown: a mere press of Shift
/// in a field of the menu bar climbs to the canvas, which shows the selection anew.
bool CurveKeysDialog::isBeingTyped(const CustomEditLine* line) const
{
    return sameKeysShown && line->hasFocus() && line->isModified();
}
