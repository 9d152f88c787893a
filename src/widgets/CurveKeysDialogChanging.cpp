// What the dialog changes, and the commands that it wraps each change in.

#include "widgets/CurveKeysDialog.h"

#include "commands/CommandChangePoints.h"
#include "commands/CommandMovePoints.h"
#include "commands/CommandSelectPoints.h"
#include "commands/CommandSetPointsType.h"
#include "commands/CurveCommandsManager.h"
#include "core/SplineBase.h"
#include "curves/CurveVisit.h"
#include "graphs/SplineCurveGraph.h"
#include "widgets/InterpolationPositions.h"
#include "widgets/KeysDialogHost.h"

#include <cmath>

using namespace curve_editor;

namespace {

/// The pending pointer is cleared first: doCommand calls the host, and the host perhaps us.
template <class Command>
void end(std::unique_ptr<Command>& pending, CurveCommandsManager& manager)
{
    std::unique_ptr<Command> command = std::move(pending);
    if (command && command->captureFinalState()) {
        manager.doCommand(command.release());
    }
}

} // namespace

void CurveKeysDialog::clickedNext()
{
    selectNeighbour(1);
}

void CurveKeysDialog::clickedPrev()
{
    selectNeighbour(-1);
}

/// Always a step of undo, even from a lonely key to itself.
void CurveKeysDialog::selectNeighbour(int step)
{
    host->manager().endGestures();
    const QList<SplineCurveGraph*> graphs = editableGraphs();
    const PointInfo* const key = graphs.isEmpty() ? nullptr : leadingKeyOf(graphs.first());
    if (!key) {
        return;
    }
    auto command = std::make_unique<CommandSelectPoints>(host->context());
    ControlSplineNode& selection = graphs.first()->selection();
    SplineBase* const spline = selection.spline();
    const int count = static_cast<int>(spline->getControlPointsNumber());
    const int index = (spline->findIndex(key) + step + count) % count;
    selection.selectSinglePoint(spline->at(static_cast<unsigned>(index)));
    command->captureFinalState();
    host->manager().doCommand(command.release());
    loadKeys(QList<SplineCurveGraph*>(shownGraphs));
    emit nodeTcbChanged();
}

void CurveKeysDialog::changeNodeType(int index)
{
    if (!isInterpolationPosition(index)) {
        return;
    }
    host->manager().endGestures();
    host->manager().doCommand(new CommandSetPointsType(
        host->context(), interpolationOfPosition[static_cast<std::size_t>(index)]));
    loadKeys(QList<SplineCurveGraph*>(shownGraphs));
    emit nodeTcbChanged();
}

// One step ends before one of the other kind begins, as when a value is typed under a held press:
// steps that overlap can't be undone one after the other.

void CurveKeysDialog::startChangePoints()
{
    endMovePoints();
    if (!pendingChange) {
        host->endCanvasGesture();
        pendingChange = std::make_unique<CommandChangePoints>(host->context());
        pendingKeys = editableKeys();
    }
}

void CurveKeysDialog::endChangePoints()
{
    end(pendingChange, host->manager());
}

void CurveKeysDialog::startMovePoints()
{
    endChangePoints();
    if (!pendingMove) {
        host->endCanvasGesture();
        pendingMove = std::make_unique<CommandMovePoints>(host->context());
        pendingKeys = editableKeys();
    }
}

void CurveKeysDialog::endMovePoints()
{
    end(pendingMove, host->manager());
}

/// By the fields, so that a button that is held still goes on with nothing. A step that was begun
/// without a field is ended by itself.
void CurveKeysDialog::endGesture()
{
    for (int field = 0; field < keyFieldsCount; ++field) {
        for (CustomEditLine* const line : linesOf(static_cast<keyFields>(field))) {
            line->endDrag();
        }
    }
    endChangePoints();
    endMovePoints();
}

void CurveKeysDialog::valueChangedTyped(ZK_DOUBLE value, CustomEditLine* line)
{
    if (isShowing) {
        return; // a field that is being closed sends what was typed for keys no longer shown
    }
    if (isGestureOfOtherKeys()) {
        endGesture();
    }
    startChangePoints();
    valueChanged(value, line);
    endGesture();
}

void CurveKeysDialog::valueChanged(ZK_DOUBLE value, CustomEditLine* line)
{
    const keyFields field = fieldOf(line);
    const bool isPosition = field == timeField || field == valueField;
    if (!pendingChange && !(pendingMove && isPosition)) {
        valueChangedTyped(value, line); // a step of the wheel
        return;
    }
    if (isGestureOfOtherKeys()) {
        endGesture(); // the value is not meant for these
        return;
    }
    // Whoever hears of a twin's new text may take curves off the canvas.
    const CurveVisit visit(host->tree());
    const double unit = field == timeField ? host->timeUnit() : 1.0;
    const double number = value / unit;
    const QList<SplineCurveGraph*> graphs = editableGraphs();
    const PointInfo* key = nullptr;
    for (SplineCurveGraph* const graph : graphs) {
        key = key ? key : leadingKeyOf(graph);
    }
    if (!key || field == noField || !std::isfinite(number) || !std::isfinite(unit)) {
        return; // no key selected, or a time at a rate of 0 or endless frames
    }
    PointInfo record = *key;
    const bool isTaken = editField(record, field, number);
    for (CustomEditLine* const twin : linesOf(field)) {
        if (twin != line) {
            twin->showText(line->text());
        }
    }
    for (SplineCurveGraph* const graph : graphs) {
        if (isTaken) {
            applyToKeys(graph, field, record);
        }
    }
    tcbCurve->showKey(record);
    emit nodeTcbChanged();
}

void CurveKeysDialog::applyToKeys(SplineCurveGraph* graph, keyFields field, const PointInfo& record)
{
    const ControlSplineNode& selection = graph->selection();
    if (!selection.hasSelection()) {
        return;
    }
    SplineBase* const spline = selection.spline();
    for (PointInfo* const key : selection.heldPoints()) {
        if (field != timeField) {
            copyField(*spline, key, field, record);
        } else if (selection.selectedPoints.size() == 1) {
            spline->setTime(key, record.time);
        }
    }
}
