#pragma once

#include "curves/NodeStruct.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QString>

#include <memory>

namespace curve_editor {

class CurveVariable;

/// The records of an editor in order of insertion, with an index that answers what a walk of the
/// list would, and the variable under which expressions read each of them.
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

    /// Take a record out of its list without freeing it.
    void removeMainNode(MainNodeStruct* node);
    void removeNode(NodeStruct* record);

    /// To be called after names of a record have been written.
    void nameHasChanged(NodeStruct* record);

    /// The record of that name, unless a record that stands before it in the list is a prefix of
    /// the name or has the name as its prefix: then null.
    NodeStruct* find(const QString& dotName) const;
    /// The first record of exactly that dotted name, prefixes or not.
    NodeStruct* findExactly(const QString& dotName) const;
    /// The first record with that parser form.
    NodeStruct* findParserName(const QString& parserName) const;
};

} // namespace curve_editor
