#include "widgets/TreeNameIndex.h"

#include <QAbstractItemModel>
#include <QTreeWidget>

#include <algorithm>

TreeNameIndex::TreeNameIndex(QTreeWidget& observed)
    : tree(observed)
{
    const QAbstractItemModel* const model = tree.model();
    connect(model, &QAbstractItemModel::rowsInserted, this, &TreeNameIndex::addRows);
    connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, &TreeNameIndex::removeRows);
    connect(model, &QAbstractItemModel::dataChanged, this, &TreeNameIndex::updateTexts);
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        items.clear();
        places.clear();
    });
}

QTreeWidgetItem* TreeNameIndex::find(const QString& path) const
{
    return findBelow(nullptr, path, 0);
}

QTreeWidgetItem* TreeNameIndex::findTop(const QString& text) const
{
    const QList<QTreeWidgetItem*> found = items.values(Place(nullptr, text));
    const auto first = std::min_element(found.begin(), found.end(),
                                        [this](QTreeWidgetItem* left, QTreeWidgetItem* right) {
                                            return rowOf(left) < rowOf(right);
                                        });
    return first == found.end() ? nullptr : *first;
}

/// A text may hold points itself, so that each point of the path may end the text of a child.
QTreeWidgetItem* TreeNameIndex::findBelow(const QTreeWidgetItem* parent, const QString& path,
                                          const qsizetype& start) const
{
    const bool lastElement = path.indexOf(QLatin1Char('.'), start) < 0;
    QList<QTreeWidgetItem*> candidates;
    if (lastElement) {
        candidates = items.values(Place(parent, path.mid(start)));
    }
    for (qsizetype end = path.indexOf(QLatin1Char('.'), start); end >= 0;
         end = path.indexOf(QLatin1Char('.'), end + 1)) {
        candidates.append(items.values(Place(parent, path.mid(start, end - start))));
    }
    if (candidates.size() > 1) {
        std::sort(candidates.begin(), candidates.end(),
                  [this](QTreeWidgetItem* left, QTreeWidgetItem* right) {
                      return rowOf(left) < rowOf(right);
                  });
    }
    for (QTreeWidgetItem* const item : std::as_const(candidates)) {
        QTreeWidgetItem* const found =
            lastElement ? item
                        : findBelow(item, path, start + places.value(item).second.size() + 1);
        if (found) {
            return found;
        }
    }
    return nullptr;
}

QList<QTreeWidgetItem*> TreeNameIndex::findAll(const QString& path) const
{
    QList<QTreeWidgetItem*> found;
    collectBelow(nullptr, path, 0, found);
    return found;
}

void TreeNameIndex::collectBelow(const QTreeWidgetItem* parent, const QString& path,
                                 const qsizetype& start, QList<QTreeWidgetItem*>& found) const
{
    for (qsizetype end = path.indexOf(QLatin1Char('.'), start); end >= 0;
         end = path.indexOf(QLatin1Char('.'), end + 1)) {
        for (QTreeWidgetItem* const item :
             items.values(Place(parent, path.mid(start, end - start)))) {
            collectBelow(item, path, end + 1, found);
        }
    }
    found += items.values(Place(parent, path.mid(start)));
}

qsizetype TreeNameIndex::size() const
{
    return places.size();
}

void TreeNameIndex::addRows(const QModelIndex& parent, const int& first, const int& last)
{
    for (int row = first; row <= last; ++row) {
        QTreeWidgetItem* const parentItem = tree.itemFromIndex(parent);
        add(*(parentItem ? parentItem->child(row) : tree.topLevelItem(row)));
    }
}

void TreeNameIndex::removeRows(const QModelIndex& parent, const int& first, const int& last)
{
    for (int row = first; row <= last; ++row) {
        QTreeWidgetItem* const parentItem = tree.itemFromIndex(parent);
        remove(*(parentItem ? parentItem->child(row) : tree.topLevelItem(row)));
    }
}

void TreeNameIndex::add(QTreeWidgetItem& item)
{
    const Place place(item.parent(), item.text(0));
    items.insert(place, &item);
    places.insert(&item, place);
    for (int row = 0; row < item.childCount(); ++row) {
        add(*item.child(row));
    }
}

void TreeNameIndex::remove(QTreeWidgetItem& item)
{
    items.remove(places.take(&item), &item);
    for (int row = 0; row < item.childCount(); ++row) {
        remove(*item.child(row));
    }
}

void TreeNameIndex::updateTexts(const QModelIndex& topLeft, const QModelIndex& bottomRight)
{
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        QTreeWidgetItem* const item = tree.itemFromIndex(topLeft.siblingAtRow(row));
        const auto known = places.find(item);
        if (known == places.end() || known->second == item->text(0)) {
            continue;
        }
        items.remove(*known, item);
        known->second = item->text(0);
        items.insert(*known, item);
    }
}

int TreeNameIndex::rowOf(QTreeWidgetItem* item) const
{
    return item->parent() ? item->parent()->indexOfChild(item) : tree.indexOfTopLevelItem(item);
}
