// Removing and renaming what stands in the catalogue.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "curves/CurveNode.h"
#include "curves/CurveVisit.h"
#include "curves/DottedName.h"
#include "editor/CurveEditorPrivate.h"

#include <QSet>
#include <QTreeWidgetItem>

#include <algorithm>

using curve_editor::DottedName;

namespace {

/// A curve whose name holds this lives on with a hidden tree item.
constexpr QLatin1String oldCurveMarker("###OLD###");

/// Under a group of its former name a renamed curve would leave the canvas with that group, and
/// under one of its new name nothing would find it. Where another curve bears the new name it
/// stays: there is no place for it.
void leaveForeignGroup(const CanvasFunctionBase& canvas, CurveNode* curve)
{
    const CurveNode* const group = curve->parentNode();
    const CurveNode* const named = canvas.findCurve(curve->dotName());
    const bool isTaken = named && named != curve && named->isCurve();
    if (group && group->dotName() != curve->path() && !isTaken) {
        curve->unlink();
    }
}

/// A group may also hold curves of another node, with whose name its own begins; and such a curve
/// may stand in its place.
bool holdsOthers(CurveNode* group, const QList<CurveNode*>& curves)
{
    const QSet<CurveNode*> own(curves.cbegin(), curves.cend());
    const QList<CurveNode*> held = group->curves();
    return std::any_of(held.cbegin(), held.cend(),
                       [&](CurveNode* curve) { return !own.contains(curve); });
}

} // namespace

void CurveEditor::removeCurve(const QString& node, const QString& curve)
{
    if (!searchMainNode(node)) {
        return;
    }
    if (NodeStruct* const record = d->catalogue.findExactly(DottedName(node, curve).text())) {
        setCurveEditableOff(record);
        d->catalogue.removeNode(record);
    }
    update();
}

void CurveEditor::removeNode(const QString& node)
{
    const QString name = node;
    checkListsEditing->selectionModel()->clear();
    MainNodeStruct* const mainNode = searchMainNode(name);
    if (!mainNode) {
        return;
    }
    const QList<NodeStruct*> records = d->catalogue.allNodes();
    for (NodeStruct* record : records) {
        if (record->mainNodeName == mainNode->name) {
            setCurveEditableOff(record);
            d->catalogue.removeNode(record);
        }
    }
    d->catalogue.removeMainNode(mainNode);

    QTreeWidgetItem* const item = checkListsEditing->findTreeItem(name);
    if (!item) {
        return;
    }
    const int index = checkListsEditing->indexOfTopLevelItem(item);
    if (index >= 0) {
        checkListsEditing->takeTopLevelItem(index);
    } else {
        checkListsEditing->removeItemWidget(item, 0);
    }
    delete item;
}

void CurveEditor::renameCurve(const QString& node, const QString& oldCurve, const QString& newCurve)
{
    if (!searchMainNode(node)) {
        return;
    }
    const QString oldName = DottedName(node, oldCurve).text();
    const QString newName = DottedName(node, newCurve).text();
    d->canvas().endGestureOn(oldName);
    NodeStruct* const record = d->catalogue.findExactly(oldName);
    if (!record) {
        return;
    }
    // Whoever listens to the tree may do anything.
    const CurveVisit visit(&d->canvas().tree());
    CurveNode* const held = d->canvas().findLeaf(oldName);
    record->dotName = newName;
    record->curveName = newCurve;
    d->catalogue.nameHasChanged(record);
    if (held) {
        held->setDotName(newName);
    }

    QTreeWidgetItem* const item = checkListsEditing->findTreeItem(oldName);
    if (!item || !record->isEditing) {
        return;
    }
    // Without an object of its own the item belongs to the curves below it.
    if (held || item->childCount() == 0) {
        checkListsEditing->removeTreeItem(oldName, item);
    }
    if (held) {
        leaveForeignGroup(d->canvas(), held);
    }
    record->isEditing = false;
    setCurveEditableOn(record, held);
    d->canvas().discardUnlinked(held); // a group of the new name had its place
    if (newName.contains(oldCurveMarker)) {
        if (QTreeWidgetItem* const renamed = checkListsEditing->findTreeItem(newName)) {
            renamed->setHidden(true);
        }
    }
    selectNodes(QStringList());
}

void CurveEditor::renameNode(const QString& oldNode, const QString& newNode)
{
    const QString oldName = oldNode;
    const QString newName = newNode;
    MainNodeStruct* const mainNode = searchMainNode(oldName);
    if (!mainNode) {
        return;
    }
    const CanvasFunctionBase& canvas = d->canvas();

    // The curves are looked up while all of them still answer to their old names.
    QList<NodeStruct*> records;
    QList<CurveNode*> curves;
    for (NodeStruct* record : d->catalogue.allNodes()) {
        if (record->mainNodeName == oldName) {
            records.append(record);
            curves.append(canvas.findLeaf(record->dotName));
        }
    }
    CurveNode* const group = canvas.findCurve(oldName);
    if (group && !holdsOthers(group, curves)) {
        group->setDotName(newName);
    }
    for (qsizetype i = 0; i < records.size(); ++i) {
        NodeStruct* const record = records[i];
        record->mainNodeName = newName;
        const DottedName renamed(newName, record->curveName);
        record->dotName = renamed.text();
        record->safeDotName = renamed.safeText();
        d->catalogue.nameHasChanged(record);
        if (curves[i] && curves[i]->dotName() != record->dotName) {
            curves[i]->setDotName(record->dotName);
        }
    }
    if (QTreeWidgetItem* const item = getNodeItem(oldName)) {
        item->setText(0, newName);
    }
    mainNode->name = newName;
    d->catalogue.nameHasChanged(mainNode);
}
