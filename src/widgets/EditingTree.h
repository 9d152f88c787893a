#pragma once

#include "zk_curve_editor_export.h"

#include <QModelIndexList>
#include <QStringList>
#include <QTreeWidget>

#include <memory>

class TreeNameIndex;

/// The curves being edited as a tree. An item's text is one element of a dotted name; the texts on
/// the way from the root, joined by points, are the dotted name of the item.
///
/// The tree owns its items. An unknown name gives null or an empty list.
class ZK_CURVE_EDITOR_EXPORT EditingTree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit EditingTree(QWidget* parent = nullptr);
    ~EditingTree() override;

    /// The dotted name of an item; empty for null.
    QString itemDotName(QTreeWidgetItem* item) const;
    /// The dotted name of the item of an index; empty for an invalid index.
    QString indexDotName(const QModelIndex& index) const;
    /// The dotted names of the items of some indexes, in their order.
    QStringList treeDotNames(const QModelIndexList& indexes) const;
    /// The first item, from the top down, of this dotted name whose own text is the path's last
    /// element; null if there is none. An item with a point in its own text is never found itself.
    QTreeWidgetItem* findTreeItem(const QString& path) const;
    /// The first top-level item with exactly this text, which may hold points; null if there is
    /// none.
    QTreeWidgetItem* findTopItem(const QString& text) const;
    /// Makes the items of a curve's dotted name, as far as there are none, one for each of its
    /// elements, and shows the last. Returns that one; null where it stood already.
    QTreeWidgetItem* addTreeItem(const QString& node, const QString& curve);
    /// Selects exactly the items of these dotted names.
    void selectTreeItems(const QStringList& names);
    /// Frees an item and each item on the path above it that is left without children. Returns the
    /// paths of the latter, deepest first; an empty list for a null item.
    QStringList removeTreeItem(const QString& path, QTreeWidgetItem* item);

signals:
    /// The user asked for the context menu on an item.
    void rightButtonPressed(const QModelIndex& index);
    /// The user pressed Delete with these indexes selected.
    void removeFromEditing(const QModelIndexList& indexes);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    std::unique_ptr<TreeNameIndex> nameIndex;
};
