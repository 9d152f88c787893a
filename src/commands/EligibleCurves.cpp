#include "commands/EligibleCurves.h"

#include "canvas/FunctionEditor.h"
#include "canvas/SplineCurveGraph.h"
#include "curves/CurveNode.h"
#include "curves/CurveType.h"
#include "editor/CurveEditor.h"

#include <QSet>

#include <algorithm>

namespace curve_editor {

namespace {

/// A record that the list search passes over, because the name of an earlier one is a prefix of
/// its own, is still found by its parser form.
NodeStruct* recordOf(const CurveEditor* editor, const CurveNode* curve)
{
    const QString name = curve->dotName();
    NodeStruct* record = editor->searchAllNodeList(name);
    if (!record) {
        record = editor->searchAllNodeListCurveName(parserForm(name));
    }
    return record && record->dotName == name ? record : nullptr;
}

} // namespace

QList<NodeStruct*> eligibleRecords(CurveEditor* editor)
{
    QList<NodeStruct*> records;
    const QList<CurveNode*> curves = editor->getFunctionEditor()->canvas().editingCurves();
    for (CurveNode* curve : curves) {
        if (!hasKeys(curve->curveType())) {
            continue;
        }
        NodeStruct* const record = recordOf(editor, curve);
        if (record && record->livingSpline() && showsRecord(curve, record)) {
            records.append(record);
        }
    }
    return records;
}

QList<PointInfo*> selectedPointsOf(CurveEditor* editor, const NodeStruct* record)
{
    const ControlSplineNode* const selection = selectionOf(editor, record);
    return selection ? membersOf(record->livingSpline(), selection->commandPoints())
                     : QList<PointInfo*>();
}

CurveNode* findCurveOf(CurveEditor* editor, const NodeStruct* record)
{
    if (!record) {
        return nullptr;
    }
    CurveNode* const found =
        editor->getFunctionEditor()->canvas().findCurve(editor->dotName(record));
    return showsRecord(found, record) ? found : nullptr;
}

ControlSplineNode* selectionOf(CurveEditor* editor, const NodeStruct* record)
{
    CurveNode* const curve = findCurveOf(editor, record);
    SplineCurveGraph* const graph = curve ? curve->splineGraph() : nullptr;
    return graph ? &graph->selection() : nullptr;
}

void selectList(CurveEditor* editor, const NodeStruct* record, const QList<PointInfo*>& points)
{
    if (ControlSplineNode* const selection = selectionOf(editor, record)) {
        selection->selectPoints(membersOf(record->livingSpline(), points));
    }
}

bool showsRecord(CurveNode* curve, const NodeStruct* record)
{
    return curve && record && curve->isCurve() && curve->spline() == record->livingSpline();
}

QList<PointInfo*> membersOf(SplineBase* spline, const QList<PointInfo*>& points)
{
    QList<PointInfo*> members;
    for (PointInfo* point : points) {
        if (spline && point && spline->findIndex(point) >= 0) {
            members.append(point);
        }
    }
    return members;
}

void dropFromSelections(CurveEditor* editor, const SplineBase* spline,
                        const QList<PointInfo*>& points)
{
    if (!spline || points.isEmpty()) {
        return;
    }
    const QSet<PointInfo*> gone(points.cbegin(), points.cend());
    const auto isGone = [&](PointInfo* point) { return gone.contains(point); };
    for (CurveNode* top : editor->getFunctionEditor()->canvas().topNodes()) {
        for (CurveNode* curve : top->curves()) {
            if (curve->spline() != spline || !curve->splineGraph()) {
                continue;
            }
            ControlSplineNode& selection = curve->splineGraph()->selection();
            QList<PointInfo*> kept = selection.selectedPoints;
            kept.erase(std::remove_if(kept.begin(), kept.end(), isGone), kept.end());
            if (kept.size() != selection.selectedPoints.size()) {
                selection.selectPoints(kept);
            }
        }
    }
}

} // namespace curve_editor
