#pragma once

#include <QHash>
#include <QList>
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

    /// The first top-level item with exactly this text; null if there is none.
    QTreeWidgetItem* findTop(const QString& text) const;

    /// All items of this dotted name, in no particular order; their texts may hold points.
    QList<QTreeWidgetItem*> findAll(const QString& path) const;

    /// The number of items in the tree.
    qsizetype size() const;

private:
    /// An item's parent (null for a top-level item) and its text.
    using Place = QPair<const QTreeWidgetItem*, QString>;

    QTreeWidgetItem* findBelow(const QTreeWidgetItem* parent, const QString& path,
                               const qsizetype& start) const;
    void collectBelow(const QTreeWidgetItem* parent, const QString& path, const qsizetype& start,
                      QList<QTreeWidgetItem*>& found) const;
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
