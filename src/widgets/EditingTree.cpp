#include "widgets/EditingTree.h"

#include "core/Trace.h"
#include "widgets/TreeNameIndex.h"

#include <QColor>
#include <QContextMenuEvent>
#include <QHash>
#include <QIcon>
#include <QItemSelection>
#include <QKeyEvent>
#include <QSet>
#include <QStyledItemDelegate>

namespace {

constexpr int mostSwatches = 256;

/// Draws the colour of an item as a swatch, of which there is one for each colour: the toolkit
/// makes a new picture for each painting of each item, and keeps something of all of them.
class SwatchDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto color = index.data(Qt::DecorationRole).value<QColor>();
        if (!color.isValid()) {
            return;
        }
        const auto known = swatches.constFind(color.rgba());
        if (known != swatches.cend()) {
            option->icon = *known;
            return;
        }
        if (swatches.size() >= mostSwatches) {
            swatches.clear();
        }
        swatches.insert(color.rgba(), option->icon);
    }

private:
    mutable QHash<QRgb, QIcon> swatches;
};

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

/// Adds the items below a parent whose dotted names are wanted to a selection, a run of neighbours
/// as one range.
void collectSelection(const QTreeWidget& tree, const QTreeWidgetItem& parent,
                      const QModelIndex& parentIndex, const QString& prefix,
                      const QSet<QString>& wanted, QItemSelection& selection)
{
    const QAbstractItemModel& model = *tree.model();
    const auto addRun = [&](int first, int end) {
        if (first >= 0) {
            selection.append(QItemSelectionRange(model.index(first, 0, parentIndex),
                                                 model.index(end - 1, 0, parentIndex)));
        }
    };
    int runStart = -1;
    for (int row = 0; row < parent.childCount(); ++row) {
        const QTreeWidgetItem& item = *parent.child(row);
        const QString name = prefix + item.text(0);
        if (!wanted.contains(name)) {
            addRun(runStart, row);
            runStart = -1;
        } else if (runStart < 0) {
            runStart = row;
        }
        if (item.childCount() > 0) {
            collectSelection(tree, item, model.index(row, 0, parentIndex), name + QLatin1Char('.'),
                             wanted, selection);
        }
    }
    addRun(runStart, parent.childCount());
}

} // namespace

EditingTree::EditingTree(QWidget* parent)
    : QTreeWidget(parent)
    , nameIndex(std::make_unique<TreeNameIndex>(*this))
{
    setItemDelegate(new SwatchDelegate(this)); // a child
    // Else each new item has the heights of all measured again when it is selected.
    setUniformRowHeights(true);
}

EditingTree::~EditingTree() = default;

QString EditingTree::itemDotName(QTreeWidgetItem* item) const
{
    QStringList texts;
    for (const QTreeWidgetItem* step = item; step; step = step->parent()) {
        texts.prepend(step->text(0));
    }
    return texts.join(QLatin1Char('.'));
}

QString EditingTree::indexDotName(const QModelIndex& index) const
{
    return itemDotName(itemFromIndex(index));
}

QStringList EditingTree::treeDotNames(const QModelIndexList& indexes) const
{
    QStringList names;
    names.reserve(indexes.size());
    for (const QModelIndex& index : indexes) {
        names.append(indexDotName(index));
    }
    return names;
}

QTreeWidgetItem* EditingTree::findTreeItem(const QString& path) const
{
    return nameIndex->find(path);
}

QTreeWidgetItem* EditingTree::findTopItem(const QString& text) const
{
    return nameIndex->findTop(text);
}

QTreeWidgetItem* EditingTree::addTreeItem(const QString& node, const QString& curve)
{
    QTreeWidgetItem* item = findTopItem(node);
    const bool isThere = findTreeItem(node + QLatin1Char('.') + curve);
    if (!item) {
        item = new QTreeWidgetItem(this);
        item->setText(0, node);
    }
    if (isThere) {
        return nullptr;
    }
    QString path = node;
    const QStringList parts = curve.split(QLatin1Char('.'));
    for (const QString& part : parts) {
        path += QLatin1Char('.') + part;
        item->setExpanded(true);
        QTreeWidgetItem* const child = findTreeItem(path);
        item = child ? child : newChild(item, part);
    }
    return item;
}

void EditingTree::selectTreeItems(const QStringList& names)
{
    const QSet<QString> wanted(names.cbegin(), names.cend());
    QItemSelection selection;
    if (wanted.size() < nameIndex->size() / 16) {
        for (const QString& name : wanted) {
            for (QTreeWidgetItem* const item : nameIndex->findAll(name)) {
                selection.append(QItemSelectionRange(indexFromItem(item)));
            }
        }
    } else {
        collectSelection(*this, *invisibleRootItem(), QModelIndex(), QString(), wanted, selection);
    }
    // Without updates the view does not lay out all items anew for each one that has come in.
    const bool updates = updatesEnabled();
    setUpdatesEnabled(false);
    selectionModel()->select(selection,
                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    setUpdatesEnabled(updates);
}

QStringList EditingTree::removeTreeItem(const QString& path, QTreeWidgetItem* item)
{
    QStringList removed;
    if (!item) {
        return removed;
    }
    const QStringList parts = path.split(QLatin1Char('.'));
    removeItemWidget(item, 0);
    trace("EditingTree::delete(%s)", item->text(0));
    delete item;
    for (qsizetype count = parts.size() - 1; count >= 1; --count) {
        const QString ancestorPath = parts.first(count).join(QLatin1Char('.'));
        QTreeWidgetItem* const ancestor = findTreeItem(ancestorPath);
        if (ancestor && ancestor->childCount() == 0) {
            removeItemWidget(ancestor, 0);
            removed.append(ancestorPath);
            trace("EditingTree::deleteParent(%s)", ancestorPath);
            delete ancestor;
        }
    }
    return removed;
}

void EditingTree::keyPressEvent(QKeyEvent* event)
{
    const QModelIndexList selected =
        event->key() == Qt::Key_Delete ? selectedIndexes() : QModelIndexList();
    if (!selected.isEmpty()) {
        emit removeFromEditing(selected);
    }
    QTreeView::keyPressEvent(event);
    if (!selected.isEmpty()) {
        // Else the key climbs to the dialog, which takes it for the selected keys of the curves.
        event->accept();
    }
}

void EditingTree::contextMenuEvent(QContextMenuEvent* event)
{
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid()) {
        emit rightButtonPressed(index);
        return;
    }
    QTreeWidget::contextMenuEvent(event);
}
