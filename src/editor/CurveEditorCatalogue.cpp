// The catalogue of curves: what a host adds, and how a record is found.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/CommandAddCurve.h"
#include "curves/CurveNode.h"
#include "curves/DottedName.h"
#include "editor/CurveEditorPrivate.h"

#include <QTreeWidgetItem>

#include <sstream>

using curve_editor::CommandAddCurve;
using curve_editor::DottedName;

void CurveEditor::addNewMainNode(const QString& node)
{
    if (searchMainNode(node)) {
        return;
    }
    d->catalogue.addMainNode(node);
    auto* const item = new QTreeWidgetItem(checkListsEditing);
    item->setText(0, node);
}

void CurveEditor::addNewNode(const QString& node, const QString& curve, const QColor& color,
                             float curveValue, SplineBase* spline, FunctionFloatBase** function,
                             float minValue, float maxValue, bool notifyHost)
{
    if (!searchMainNode(node)) {
        return;
    }
    NodeStruct* const known = searchAllNodeList(DottedName(node, curve).text());
    if (known && !(known->isSplineLost() && spline)) {
        return;
    }
    const NodeStruct content = NodeStruct::lent(node, curve, color, curveValue, spline, function,
                                                minValue, maxValue, notifyHost);
    if (known) {
        lendAnew(known, content);
    } else {
        d->catalogue.addNode(content);
    }
}

/// The host has destroyed the spline of a record and offers another one. The curve object of the
/// former makes place for a new one.
void CurveEditor::lendAnew(NodeStruct* record, const NodeStruct& content)
{
    const bool isEditing = record->isEditing;
    if (isEditing) {
        setCurveEditableOff(record);
    }
    d->catalogue.lendAnew(record, content);
    if (isEditing) {
        setCurveEditableOn(record);
    }
}

void CurveEditor::addCurve(const QString& node, const QString& curve, const QColor& color,
                           float curveValue, SplineBase* spline, FunctionFloatBase** function,
                           float minValue, float maxValue, bool selectByDefault, bool notifyHost)
{
    CommandAddCurve command(this, node, curve, color, curveValue, spline, function, minValue,
                            maxValue, selectByDefault, notifyHost);
    command.execute();
}

CurveEditor::MainNodeStruct* CurveEditor::searchMainNode(const QString& node) const
{
    return d->catalogue.findMainNode(node);
}

CurveEditor::NodeStruct* CurveEditor::searchAllNodeList(const QString& dotName) const
{
    return d->catalogue.find(dotName);
}

CurveEditor::NodeStruct* CurveEditor::searchAllNodeListCurveName(const QString& parserName) const
{
    return d->catalogue.findParserName(parserName);
}

const ParserScope* CurveEditor::parserScope() const
{
    return &d->catalogue.parserScope();
}

CurveEditor::NodeStruct* CurveEditor::structFromDotName(const QString& dotName) const
{
    return searchAllNodeList(dotName);
}

CurveEditor::NodeStruct* CurveEditor::structFromCurve(CurveNode const* curve) const
{
    return curve ? searchAllNodeList(curve->dotName()) : nullptr;
}

QList<CurveEditor::NodeStruct*>
CurveEditor::structsFromCurves(const QList<CurveNode*>& curves) const
{
    QList<NodeStruct*> records;
    records.reserve(curves.size());
    for (const CurveNode* curve : curves) {
        records.append(structFromCurve(curve));
    }
    return records;
}

QList<CurveEditor::NodeStruct*> CurveEditor::structsFromDotNames(const QStringList& dotNames) const
{
    QList<NodeStruct*> records;
    records.reserve(dotNames.size());
    for (const QString& name : dotNames) {
        records.append(searchAllNodeList(name));
    }
    return records;
}

CurveNode* CurveEditor::curveFromDotName(const QString& dotName) const
{
    return d->canvas().findCurve(dotName);
}

CurveNode* CurveEditor::curveFromStruct(NodeStruct const* record) const
{
    return record ? curveFromDotName(dotName(record)) : nullptr;
}

QString CurveEditor::dotName(NodeStruct const* record) const
{
    return record ? DottedName(record->mainNodeName, record->curveName).text() : QString();
}

QString CurveEditor::dotName(CurveNode const* curve) const
{
    return curve ? curve->dotName() : QString();
}

QStringList CurveEditor::dotNamesFromStructs(const QList<NodeStruct*>& records) const
{
    QStringList names;
    names.reserve(records.size());
    for (const NodeStruct* record : records) {
        if (record) {
            names.append(dotName(record));
        }
    }
    return names;
}

QTreeWidgetItem* CurveEditor::getNodeItem(const QString& text) const
{
    return checkListsEditing->findTopItem(text);
}

void CurveEditor::updateCurves()
{
    d->repaintCanvas();
}

std::string CurveEditor::dumpNodeList() const
{
    std::ostringstream text;
    for (const NodeStruct* record : d->catalogue.allNodes()) {
        text << record->dotName.toLocal8Bit().constData() << std::endl;
    }
    return text.str();
}
