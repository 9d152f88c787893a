// Which curves of the catalogue are on the canvas and in the tree.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/CommandRemoveCurves.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveVisit.h"
#include "curves/DottedName.h"
#include "editor/CurveEditorPrivate.h"
#include "widgets/ControlMenu2.h"

#include <QColorDialog>
#include <QPointer>
#include <QTreeWidgetItem>

using curve_editor::CommandRemoveCurves;
using curve_editor::DottedName;
using curve_editor::NodeStruct;

namespace {

/// Children stand in ascending order. A new one goes straight to its place among them, for sorting
/// them anew at each of thousands of siblings takes too long.
QTreeWidgetItem* newChild(QTreeWidgetItem* parent, const QString& text)
{
    int row = 0;
    int end = parent->childCount();
    while (row < end) {
        const int middle = row + (end - row) / 2;
        if (text < parent->child(middle)->text(0)) {
            end = middle;
        } else {
            row = middle + 1;
        }
    }
    auto* const item = new QTreeWidgetItem(QStringList(text));
    parent->insertChild(row, item);
    return item;
}

/// The group that answers to a name; null where a curve or nothing does.
CurveNode* findGroup(const CanvasFunctionBase& canvas, const QString& dotName)
{
    CurveNode* const found = canvas.findCurve(dotName);
    return found && !found->isCurve() ? found : nullptr;
}

/// A group with curves answers to this name: it belongs to them, not to a curve of the name.
bool isPeopledGroup(const CanvasFunctionBase& canvas, const QString& dotName)
{
    CurveNode* const group = findGroup(canvas, dotName);
    return group && !group->curves().isEmpty();
}

/// A group that its last curve was renamed out of is still there. One whose item has no children
/// may hold curves all the same: of a node whose name begins with its own.
void dropEmptyGroup(CanvasFunctionBase& canvas, const QString& dotName)
{
    if (findGroup(canvas, dotName) && !isPeopledGroup(canvas, dotName)) {
        canvas.removeCanvasCurve(dotName);
    }
}

/// Gives a curve of the catalogue its object on the canvas, the given one or a new one.
void enterCanvas(CurveEditor* editor, NodeStruct* record, CurveNode* curve)
{
    CanvasFunctionBase& canvas = editor->getFunctionEditor()->canvas();
    dropEmptyGroup(canvas, record->dotName); // it would be taken for the curve
    if (!canvas.attachCanvasCurve(curve)) {  // none was given, or it has been freed since
        curve = canvas.addCanvasCurve(*record);
    }
    record->isEditing = true;
    auto* const leaf = dynamic_cast<CurveNodeBase*>(curve);
    if (leaf && record->notifyHost) {
        QObject::connect(leaf, SIGNAL(curveHasChanged(QString&, QString&)), editor,
                         SLOT(emitSignalCurveHasChanged(QString&, QString&)));
    }
}

/// A swatch of the colour that the curve is drawn in.
void showColor(QTreeWidgetItem* item, const QColor& color)
{
    if (item) {
        item->setData(0, Qt::DecorationRole, color.isValid() ? color : QColor(Qt::black));
    }
}

/// The items on the way to a curve, as far as there are none.
void addTreeItems(EditingTree* tree, const NodeStruct* record)
{
    QTreeWidgetItem* item = tree->findTopItem(record->mainNodeName);
    const QString name = DottedName(record->mainNodeName, record->curveName).text();
    const QTreeWidgetItem* const leaf = tree->findTreeItem(name);
    if (!item) {
        item = new QTreeWidgetItem(tree);
        item->setText(0, record->mainNodeName);
    }
    if (leaf) {
        return;
    }
    QString path = record->mainNodeName;
    const QStringList parts = record->curveName.split(QLatin1Char('.'));
    for (const QString& part : parts) {
        path += QLatin1Char('.') + part;
        item->setExpanded(true);
        QTreeWidgetItem* child = tree->findTreeItem(path);
        if (!child) {
            child = newChild(item, part);
        }
        item = child;
    }
    showColor(item, record->color);
}

/// Only an item at the top is freed.
void takeOutItem(EditingTree* tree, QTreeWidgetItem* item)
{
    const int index = tree->indexOfTopLevelItem(item);
    if (index >= 0) {
        delete tree->takeTopLevelItem(index);
    } else {
        tree->removeItemWidget(item, 0);
    }
}

/// Invalid after a cancel, and when a host has deleted the editor meanwhile, which takes the dialog
/// along: the toolkit's own static call does not survive that.
QColor chosenColor(const QColor& present, CurveEditor* editor)
{
    const QPointer<QColorDialog> dialog(new QColorDialog(present, editor));
    dialog->exec();
    const QColor color = dialog ? dialog->selectedColor() : QColor();
    delete dialog.data();
    return color;
}

} // namespace

void CurveEditor::setCurveEditableOn(NodeStruct* record)
{
    setCurveEditableOn(record, nullptr);
}

void CurveEditor::setCurveEditableOn(NodeStruct* record, CurveNode* curve)
{
    if (!record) {
        return;
    }
    const CurveVisit visit(&d->canvas().tree());
    selectionBusy = true;
    if (!record->isEditing) {
        enterCanvas(this, record, curve);
    }
    addTreeItems(checkListsEditing, record);
    selectionBusy = false;
    d->canvas().updateCanvas();
    update();
}

void CurveEditor::setCurveEditableOff(NodeStruct* record)
{
    if (!record) {
        return;
    }
    d->canvas().endGestureOn(record->dotName);
    selectionBusy = true;
    CanvasFunctionBase& canvas = d->canvas();
    const QString name = record->dotName;
    if (!isPeopledGroup(canvas, name)) {
        const QStringList groups =
            checkListsEditing->removeTreeItem(name, checkListsEditing->findTreeItem(name));
        canvas.removeCanvasCurve(name);
        for (const QString& group : groups) {
            dropEmptyGroup(canvas, group);
        }
    }
    selectNodes(QStringList());
    record->isEditing = false;
    selectionBusy = false;
    update();
}

void CurveEditor::setDefaultSelected(const QString& node, const QString& curve)
{
    const QString name = DottedName(node, curve).text();
    NodeStruct* const record = searchAllNodeList(name);
    if (!record) {
        return;
    }
    setCurveEditableOn(record);
    selectNodes(QStringList(name));
    update();
}

void CurveEditor::setDefaultSelected(const QString& node, const QString& curve,
                                     CurveNode* curveNode)
{
    const QString name = DottedName(node, curve).text();
    setCurveEditableOn(searchAllNodeList(name), curveNode);
    selectNodes(QStringList(name));
    update();
}

void CurveEditor::cleanSelecteds()
{
    const QList<NodeStruct*> records = d->catalogue.allNodes();
    for (NodeStruct* record : records) {
        setCurveEditableOff(record);
    }
    update();
}

void CurveEditor::slotRemoveFromEditing(QModelIndexList indexes)
{
    d->manager.endGestures();
    d->manager.doCommand(new CommandRemoveCurves(this, checkListsEditing->treeDotNames(indexes)));
}

void CurveEditor::removeCurvesFromEditing()
{
    d->manager.endGestures();
    d->manager.doCommand(new CommandRemoveCurves(this, d->canvas().editingCurveNames()));
}

void CurveEditor::slotMenuEditingNodeRemove()
{
    removeCurvesFromEditing();
}

void CurveEditor::removeCurveFromEditing(QString dotName)
{
    if (NodeStruct* const record = searchAllNodeList(dotName)) {
        if (record->isEditing) {
            setCurveEditableOff(record);
        }
        update();
        return;
    }
    QTreeWidgetItem* item = checkListsEditing->findTreeItem(dotName);
    // A child may stay, for want of a record that answers to it: then its sibling is next.
    int next = 0;
    while (item && next < item->childCount()) {
        const int before = item->childCount();
        removeCurveFromEditing(checkListsEditing->itemDotName(item->child(next)));
        item = checkListsEditing->findTreeItem(dotName);
        if (item && item->childCount() >= before) {
            ++next;
        }
    }
    if (item && item->childCount() == 0) {
        takeOutItem(checkListsEditing, item);
    }
    update();
}

void CurveEditor::rightButtonPressedEditingItem(QModelIndex index)
{
    if (!index.isValid() || d->treeMenu->isVisible()) {
        return; // a second loop of the same menu would never let the first end
    }
    d->treeMenu->itemName = checkListsEditing->indexDotName(index);
    d->treeMenu->exec(QCursor::pos());
}

void CurveEditor::slotMenuEditingNodeColor()
{
    NodeStruct* const record = searchAllNodeList(d->treeMenu->itemName);
    if (!record) {
        return;
    }
    const QPointer<CurveEditor> self(this);
    const QColor color = chosenColor(record->color, this);
    if (!self) {
        return;
    }
    setColorToEditingNode(record, color);
    refreshEditor();
}

void CurveEditor::setColorToEditingNode(NodeStruct* record, const QColor& color)
{
    if (!record) {
        return;
    }
    record->color = color;
    CurveNode* const curve = curveFromDotName(record->dotName);
    if (curve && curve->isCurve()) {
        curve->setColor(record->color, d->canvas().canvasColor);
        showColor(checkListsEditing->findTreeItem(record->dotName), record->color);
        d->functionEditor->update();
    }
}

void CurveEditor::setCheckListStyle(QStyle* style)
{
    checkListsEditing->setStyle(style);
}

void CurveEditor::setTreeVisible(bool visible)
{
    checkListsEditing->setVisible(visible);
}

bool CurveEditor::isTreeVisible() const
{
    return checkListsEditing->isVisible();
}
