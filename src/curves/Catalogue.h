#pragma once

#include "core/ParserScope.h"
#include "curves/NameIndex.h"
#include "curves/NodeStruct.h"

#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QString>

#include <deque>
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
/// Records live as long as the catalogue, since commands keep pointers to them: taking one out of
/// its list frees nothing. Listing anew what was taken out finds the former record, so that curves
/// may come and go for ever.
class Catalogue
{
public:
    Catalogue();
    ~Catalogue();
    Catalogue(const Catalogue&) = delete;
    Catalogue& operator=(const Catalogue&) = delete;

    /// Whose the variables of the records are.
    const ParserScope& parserScope() const;

    const QList<MainNodeStruct*>& mainNodes() const;
    const QList<NodeStruct*>& allNodes() const;

    /// Records at the end of their list. One of the same name, and of a curve with the same spline
    /// and slot, that was taken out before is used again.
    MainNodeStruct* addMainNode(const QString& name);
    NodeStruct* addNode(const NodeStruct& content);

    /// Replaces what a record in the list shows; its names stay.
    void lendAnew(NodeStruct* record, const NodeStruct& content);

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

    /// The lists by name. Entries are numbered in the order of the lists.
    struct Names
    {
        NameIndex<MainNodeStruct> ofMainNodes;
        NameIndex<NodeStruct> dotted;
        NameIndex<NodeStruct> ofParser;
        Number next = 0;
    };

    MainNodeStruct* mainRecordFor(const QString& name);
    NodeStruct* recordFor(const NodeStruct& content);

    ParserScope scope; // outlives the variables
    // The records outlive the variables, which read them.
    std::deque<MainNodeStruct> mainRecords;
    std::deque<NodeStruct> records;
    QHash<QString, MainNodeStruct*> formerMainNodes; ///< those not in the list, by name
    QMultiHash<QString, NodeStruct*> formerNodes;    ///< the same, by dotted name
    QList<MainNodeStruct*> mainList;                 ///< not owned: of mainRecords
    QList<NodeStruct*> nodeList;                     ///< not owned: of records
    std::unordered_map<const MainNodeStruct*, MainEntry> mainEntries;
    std::unordered_map<const NodeStruct*, Entry> entries;
    Names names;
};

} // namespace curve_editor
