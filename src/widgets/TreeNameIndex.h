#pragma once

#include <QHash>
#include <QModelIndex>
#include <QObject>
#include <QPair>
#include <QString>

class QTreeWidget;
class QTreeWidgetItem;

/// Finds the items of a tree by dotted name without searching it, however many siblings there are.
/// It follows the tree's model by itself; the tree owns it and outlives it.
class TreeNameIndex : public QObject
{
    Q_OBJECT

public:
    explicit TreeNameIndex(QTreeWidget& observed);

    /// The first item, from the top down, of this dotted name whose own text holds no point; null
    /// if there is none.
    QTreeWidgetItem* find(const QString& path) const;

private:
    /// An item's parent (null for a top-level item) and its text.
    using Place = QPair<const QTreeWidgetItem*, QString>;

    QTreeWidgetItem* findBelow(const QTreeWidgetItem* parent, const QString& path,
                               const qsizetype& start) const;
    void addRows(const QModelIndex& parent, const int& first, const int& last);
    void removeRows(const QModelIndex& parent, const int& first, const int& last);
    void add(QTreeWidgetItem& item);
    void remove(QTreeWidgetItem& item);
    void updateTexts(const QModelIndex& topLeft, const QModelIndex& bottomRight);
    int rowOf(QTreeWidgetItem* item) const;

    /// Not owned.
    QTreeWidget& tree;
    /// Not owned; items that stand in the tree.
    QMultiHash<Place, QTreeWidgetItem*> items;
    /// The place under which each item stands above.
    QHash<const QTreeWidgetItem*, Place> places;
};
