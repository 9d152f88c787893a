#include "commands/RecordKeys.h"

#include "commands/CommandContext.h"
#include "curves/Catalogue.h"
#include "curves/CurveNode.h"
#include "curves/CurveTree.h"
#include "curves/DottedName.h"
#include "curves/EditingSet.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"

namespace curve_editor {

QString dotNameOf(const NodeStruct& record)
{
    return DottedName(record.mainNodeName, record.curveName).text();
}

NodeStruct* recordOf(const CommandContext& context, const CurveNode& curve)
{
    const QString name = curve.dotName();
    NodeStruct* record = context.catalogue().find(name);
    if (!record) {
        record = context.catalogue().findParserName(parserForm(name));
    }
    return record && record->dotName == name ? record : nullptr;
}

QList<NodeStruct*> eligibleRecords(const CommandContext& context)
{
    QList<CurveNode*> eligible;
    for (CurveNode* curve : context.editingSet()) {
        if (hasKeys(curve->curveType()) && curve->spline()) {
            eligible.append(curve);
        }
    }
    return recordsOf(context, eligible);
}

QList<NodeStruct*> recordsOf(const CommandContext& context, const QList<CurveNode*>& curves)
{
    QList<NodeStruct*> records;
    for (CurveNode* curve : curves) {
        NodeStruct* const record = recordOf(context, *curve);
        if (showsRecord(curve, record)) {
            records.append(record);
        }
    }
    return records;
}

QList<KeyRef> selectedKeysOf(const CommandContext& context, const NodeStruct* record)
{
    const ControlSplineNode* const selection = selectionOf(context, record);
    return selection ? membersOf(record->livingSpline(), selection->commandKeys())
                     : QList<KeyRef>();
}

CurveNode* findCurveOf(const CommandContext& context, const NodeStruct* record)
{
    if (!record) {
        return nullptr;
    }
    CurveNode* const found = context.tree().findCurve(dotNameOf(*record));
    return showsRecord(found, record) ? found : nullptr;
}

ControlSplineNode* selectionOf(const CommandContext& context, const NodeStruct* record)
{
    CurveNode* const curve = findCurveOf(context, record);
    SplineCurveGraph* const graph = curve ? curve->splineGraph() : nullptr;
    return graph ? &graph->selection() : nullptr;
}

void selectList(const CommandContext& context, const NodeStruct* record, const QList<KeyRef>& keys)
{
    if (ControlSplineNode* const selection = selectionOf(context, record)) {
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

void dropDepartedKeys(const CommandContext& context, const QSet<const SplineBase*>& splines)
{
    const QList<CurveNode*> tops = context.tree().topNodes();
    for (CurveNode* top : tops) {
        const QList<CurveNode*> curves = top->curves();
        for (CurveNode* curve : curves) {
            if (splines.contains(curve->spline()) && curve->splineGraph()) {
                curve->splineGraph()->selection().dropDeparted();
            }
        }
    }
}

} // namespace curve_editor
