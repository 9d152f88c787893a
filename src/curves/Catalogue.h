#pragma once

#include "curves/NameIndex.h"
#include "curves/NodeStruct.h"

#include <QList>
#include <QString>

#include <memory>
#include <unordered_map>

namespace curve_editor {

class CurveVariable;

/// The records of an editor in order of insertion, with an index that answers what a walk of the
/// list would, and the variable under which expressions read each of them.
///
///     Catalogue catalogue;
///     catalogue.addMainNode("body");
///     NodeStruct* record = catalogue.addNode(content);
///     catalogue.find("body.width") == record;
///
/// Records are never freed: taking one out of its list, or the end of the catalogue, leaves it in
/// a store of the process, since commands keep pointers to it.
class Catalogue
{
public:
    Catalogue();
    ~Catalogue();
    Catalogue(const Catalogue&) = delete;
    Catalogue& operator=(const Catalogue&) = delete;

    const QList<MainNodeStruct*>& mainNodes() const;
    const QList<NodeStruct*>& allNodes() const;

    /// New records live as long as the process: commands keep pointers to them.
    MainNodeStruct* addMainNode(const QString& name);
    NodeStruct* addNode(const NodeStruct& content);

    /// Take a record out of its list without freeing it. One that is not in it is passed over.
    void removeMainNode(MainNodeStruct* node);
    void removeNode(NodeStruct* record);

    /// To be called after names of a record have been written. Its place in the list stays.
    void nameHasChanged(MainNodeStruct* node);
    void nameHasChanged(NodeStruct* record);

    /// The first main node of that name, or null.
    MainNodeStruct* findMainNode(const QString& name) const;

    /// The record of that name, unless a record that stands before it in the list is a prefix of
    /// the name or has the name as its prefix: then null.
    NodeStruct* find(const QString& dotName) const;
    /// The first record of exactly that dotted name, prefixes or not.
    NodeStruct* findExactly(const QString& dotName) const;
    /// The first record with that parser form.
    NodeStruct* findParserName(const QString& parserName) const;

private:
    using Number = unsigned long long;

    /// How a main node stands in the index.
    struct MainEntry
    {
        Number number = 0;
        QString name;
    };

    /// How a record stands in the indexes, and its variable.
    struct Entry
    {
        Number number = 0;
        QString dotName;
        QString parserName;
        std::unique_ptr<CurveVariable> variable;
    };

    QList<MainNodeStruct*> mainList; ///< not owned: the store's
    QList<NodeStruct*> nodeList;     ///< not owned: the store's
    std::unordered_map<const MainNodeStruct*, MainEntry> mainEntries;
    std::unordered_map<const NodeStruct*, Entry> entries;
    NameIndex<MainNodeStruct> mainNames;
    NameIndex<NodeStruct> dotNames;
    NameIndex<NodeStruct> parserNames;
    Number nextNumber = 0;
};

} // namespace curve_editor
