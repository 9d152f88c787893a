#include "commands/EligibleCurves.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "canvas/SplineCurveGraph.h"
#include "curves/CurveNode.h"
#include "curves/CurveType.h"
#include "editor/CurveEditor.h"

namespace curve_editor {

NodeStruct* recordOf(const CurveEditor* editor, const CurveNode* curve)
{
    const QString name = curve->dotName();
    NodeStruct* record = editor->searchAllNodeList(name);
    if (!record) {
        record = editor->searchAllNodeListCurveName(parserForm(name));
    }
    return record && record->dotName == name ? record : nullptr;
}

QList<NodeStruct*> eligibleRecords(CurveEditor* editor)
{
    QList<CurveNode*> eligible;
    const QList<CurveNode*> curves = editor->getFunctionEditor()->canvas().editingCurves();
    for (CurveNode* curve : curves) {
        if (hasKeys(curve->curveType()) && curve->spline()) {
            eligible.append(curve);
        }
    }
    return recordsOf(editor, eligible);
}

QList<NodeStruct*> recordsOf(const CurveEditor* editor, const QList<CurveNode*>& curves)
{
    QList<NodeStruct*> records;
    for (CurveNode* curve : curves) {
        NodeStruct* const record = recordOf(editor, curve);
        if (showsRecord(curve, record)) {
            records.append(record);
        }
    }
    return records;
}

QList<KeyRef> selectedKeysOf(CurveEditor* editor, const NodeStruct* record)
{
    const ControlSplineNode* const selection = selectionOf(editor, record);
    return selection ? membersOf(record->livingSpline(), selection->commandKeys())
                     : QList<KeyRef>();
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

void selectList(CurveEditor* editor, const NodeStruct* record, const QList<KeyRef>& keys)
{
    if (ControlSplineNode* const selection = selectionOf(editor, record)) {
        QList<PointInfo*> points;
        for (const KeyRef& member : membersOf(record->livingSpline(), keys)) {
            points.append(member.key);
        }
        selection->selectPoints(points);
    }
}

bool showsRecord(CurveNode* curve, const NodeStruct* record)
{
    return curve && record && curve->isCurve() && curve->spline() == record->livingSpline();
}

QList<KeyRef> membersOf(const SplineBase* spline, const QList<KeyRef>& keys)
{
    QList<KeyRef> members;
    for (const KeyRef& key : keys) {
        if (spline && spline->holds(key)) {
            members.append(key);
        }
    }
    return members;
}

void dropDepartedKeys(CurveEditor* editor, const QSet<const SplineBase*>& splines)
{
    for (CurveNode* top : editor->getFunctionEditor()->canvas().topNodes()) {
        for (CurveNode* curve : top->curves()) {
            if (splines.contains(curve->spline()) && curve->splineGraph()) {
                curve->splineGraph()->selection().dropDeparted();
            }
        }
    }
}

} // namespace curve_editor
