#include "curves/Catalogue.h"

#include "curves/CurveVariable.h"

#include <utility>

namespace curve_editor {

namespace {

/// A spline destroyed since then, at whose address another one lives, is not the same.
bool showsTheSame(const NodeStruct& former, const NodeStruct& content)
{
    return former.livingSpline() == content.spline && former.function == content.function &&
           !former.isSplineLost();
}

} // namespace

Catalogue::Catalogue() = default;

Catalogue::~Catalogue()
{
    for (auto& [record, entry] : entries) {
        CurveVariable::end(std::move(entry.variable));
    }
}

const ParserScope& Catalogue::parserScope() const
{
    return scope;
}

const QList<MainNodeStruct*>& Catalogue::mainNodes() const
{
    return mainList;
}

const QList<NodeStruct*>& Catalogue::allNodes() const
{
    return nodeList;
}

MainNodeStruct* Catalogue::addMainNode(const QString& name)
{
    MainNodeStruct* const node = mainRecordFor(name);
    const Number number = names.next++;
    mainList.append(node);
    mainEntries.emplace(node, MainEntry{number, name});
    names.ofMainNodes.add(name, number, node);
    return node;
}

NodeStruct* Catalogue::addNode(const NodeStruct& content)
{
    NodeStruct* const record = recordFor(content);
    Entry entry;
    entry.number = names.next++;
    entry.dotName = record->dotName;
    entry.parserName = parserForm(record->dotName);
    entry.variable = std::make_unique<CurveVariable>(record, &scope);
    nodeList.append(record);
    names.dotted.add(entry.dotName, entry.number, record);
    names.ofParser.add(entry.parserName, entry.number, record);
    entries.emplace(record, std::move(entry));
    scope.adopt(record->livingExpression()); // left by an editor that is gone
    return record;
}

void Catalogue::lendAnew(NodeStruct* record, const NodeStruct& content)
{
    const NodeStruct former = *record;
    *record = content;
    record->mainNodeName = former.mainNodeName;
    record->curveName = former.curveName;
    record->dotName = former.dotName;
    record->safeDotName = former.safeDotName;
    scope.adopt(record->livingExpression());
}

void Catalogue::removeMainNode(MainNodeStruct* node)
{
    const auto found = mainEntries.find(node);
    if (found == mainEntries.end()) {
        return;
    }
    names.ofMainNodes.remove(found->second.name, found->second.number);
    mainEntries.erase(found);
    mainList.removeAll(node);
    formerMainNodes.insert(node->name, node);
}

void Catalogue::removeNode(NodeStruct* record)
{
    const auto found = entries.find(record);
    if (found == entries.end()) {
        return;
    }
    names.dotted.remove(found->second.dotName, found->second.number);
    names.ofParser.remove(found->second.parserName, found->second.number);
    CurveVariable::end(std::move(found->second.variable));
    entries.erase(found);
    nodeList.removeOne(record);
    formerNodes.insert(record->dotName, record);
}

void Catalogue::nameHasChanged(MainNodeStruct* node)
{
    const auto found = mainEntries.find(node);
    if (found == mainEntries.end()) {
        return;
    }
    MainEntry& entry = found->second;
    names.ofMainNodes.remove(entry.name, entry.number);
    entry.name = node->name;
    names.ofMainNodes.add(entry.name, entry.number, node);
}

void Catalogue::nameHasChanged(NodeStruct* record)
{
    const auto found = entries.find(record);
    if (found == entries.end()) {
        return;
    }
    Entry& entry = found->second;
    names.dotted.remove(entry.dotName, entry.number);
    names.ofParser.remove(entry.parserName, entry.number);
    entry.dotName = record->dotName;
    entry.parserName = parserForm(record->dotName);
    names.dotted.add(entry.dotName, entry.number, record);
    names.ofParser.add(entry.parserName, entry.number, record);
    entry.variable->rename();
}

MainNodeStruct* Catalogue::mainRecordFor(const QString& name)
{
    if (MainNodeStruct* const former = formerMainNodes.take(name)) {
        return former;
    }
    mainRecords.push_back(MainNodeStruct{name});
    return &mainRecords.back();
}

NodeStruct* Catalogue::recordFor(const NodeStruct& content)
{
    for (auto former = formerNodes.find(content.dotName);
         former != formerNodes.end() && former.key() == content.dotName; ++former) {
        NodeStruct* const record = former.value();
        if (showsTheSame(*record, content)) {
            formerNodes.erase(former);
            *record = content;
            return record;
        }
    }
    records.push_back(content);
    return &records.back();
}

MainNodeStruct* Catalogue::findMainNode(const QString& name) const
{
    return names.ofMainNodes.first(name);
}

NodeStruct* Catalogue::find(const QString& dotName) const
{
    return names.dotted.firstWithoutPrefix(dotName);
}

NodeStruct* Catalogue::findExactly(const QString& dotName) const
{
    return names.dotted.first(dotName);
}

NodeStruct* Catalogue::findParserName(const QString& parserName) const
{
    return names.ofParser.first(parserName);
}

} // namespace curve_editor
