#include "curves/CurveTree.h"

#include "core/SplineBase.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveVisit.h"
#include "curves/EditingSet.h"
#include "curves/NodeStruct.h"
#include "graphs/SplineCurveGraph.h"

#include <algorithm>
#include <utility>

using curve_editor::NodeStruct;

CurveTree::CurveTree(EditingSet& editingSet, CurveHost* shower)
    : editing(editingSet)
    , curveHost(shower)
    , unlinked(editingSet)
{}

/// A group takes its children along, so the roots are enough: those on top, those that were
/// unlinked and are named still, and those that never were linked.
CurveTree::~CurveTree()
{
    QList<CurveNode*> roots;
    for (CurveNode* node : std::as_const(nodes)) {
        if (!node->parentNode()) {
            roots.append(node);
        }
    }
    qDeleteAll(roots);
}

CurveHost* CurveTree::host() const
{
    return curveHost;
}

QList<CurveNode*> CurveTree::topNodes() const
{
    return tops;
}

bool CurveTree::isKnown(CurveNode* node) const
{
    return nodes.contains(node);
}

void CurveTree::nodeCreated(CurveNode* node)
{
    nodes.insert(node);
    nodesByName.insert(node->dotName(), node);
}

void CurveTree::nodeRenamed(CurveNode* node, const QString& oldDotName)
{
    nodesByName.remove(oldDotName, node);
    nodesByName.insert(node->dotName(), node);
}

void CurveTree::nodeReleased(CurveNode* node)
{
    unlinked.nameDropped(node);
}

void CurveTree::nodeDestroyed(CurveNode* node)
{
    unlinked.giveBack(node);
    nodes.remove(node);
    nodesByName.remove(node->dotName(), node);
    editing.remove(node);
    tops.removeAll(node);
}

void CurveTree::beginVisit()
{
    unlinked.beginVisit();
}

void CurveTree::endVisit()
{
    unlinked.endVisit();
}

std::weak_ptr<const void> CurveTree::watchLife() const
{
    return life.watch();
}

bool CurveTree::isLinked(const CurveNode* node) const
{
    const CurveNode* root = node;
    while (root->parentNode()) {
        root = root->parentNode();
    }
    return std::find(tops.begin(), tops.end(), root) != tops.end();
}

/// Several nodes may share a name: below each top one.
QList<CurveNode*> CurveTree::linkedNodes(const QString& dotName) const
{
    QList<CurveNode*> linked = nodesByName.values(dotName);
    linked.removeIf([this](const CurveNode* node) { return !isLinked(node); });
    return linked;
}

/// Only where several nodes share the name does it take the walk to tell which is the first.
CurveNode* CurveTree::findCurve(const QString& dotName) const
{
    CurveNode* only = nullptr;
    int linked = 0;
    const auto [begin, end] = nodesByName.equal_range(dotName);
    for (auto named = begin; named != end; ++named) {
        if (isLinked(*named)) {
            only = *named;
            ++linked;
        }
    }
    if (linked < 2) {
        return only;
    }
    for (CurveNode* top : tops) {
        if (CurveNode* found = top->findNode(dotName)) {
            return found;
        }
    }
    return nullptr;
}

CurveNode* CurveTree::findLeaf(const QString& dotName) const
{
    CurveNode* const found = findCurve(dotName);
    return found && found->isCurve() ? found : nullptr;
}

QList<CurveNode*> CurveTree::findAll(const QStringList& dotNames) const
{
    QList<CurveNode*> all;
    for (const QString& name : dotNames) {
        if (CurveNode* const found = findCurve(name)) {
            all.append(found);
        }
    }
    return all;
}

CurveNode* CurveTree::ensurePath(const QString& dotName)
{
    const QLatin1Char point('.');
    const QStringList parts = dotName.split(point);
    // By text, not by place: a.b.b has no group a.b.
    const auto groups = parts.indexOf(parts.last());
    CurveNode* group = nullptr;
    qsizetype reached = 0;
    for (; reached < groups; ++reached) {
        CurveNode* found = findCurve(parts.mid(0, reached + 1).join(point));
        if (!found) {
            break;
        }
        if (found->isCurve()) {
            return nullptr;
        }
        group = found;
    }
    for (; reached < groups; ++reached) {
        const QString path = group ? group->dotName() : QString();
        auto* created = new CurveNode(*this, parts.at(reached), path);
        link(created, group);
        group = created;
    }
    return group;
}

/// Under a group, or on top where that is null. An unlinked group that the node has left may be
/// named no longer.
void CurveTree::link(CurveNode* node, CurveNode* group)
{
    CurveNode* const former = node->parentNode();
    unlinked.giveBack(node);
    if (group) {
        group->addChild(node);
    } else {
        node->unlink();
        tops.append(node);
    }
    if (former) {
        unlinked.nameDropped(former);
    }
}

CurveNode* CurveTree::add(const NodeStruct& record)
{
    if (CurveNode* found = findCurve(record.dotName)) {
        return found;
    }
    CurveNode* const group = ensurePath(record.dotName);
    auto* curve = new CurveNodeBase(*this, record);
    const SplineBase* const spline = record.livingSpline();
    curve->setAddFunc(spline && spline->isAddFunc());
    link(curve, group);
    return curve;
}

CurveNode* CurveTree::attach(CurveNode* curve)
{
    if (!isKnown(curve)) {
        return nullptr;
    }
    if (CurveNode* found = findCurve(curve->dotName())) {
        return found;
    }
    link(curve, ensurePath(curve->dotName()));
    if (curve->splineGraph()) {
        curve->splineGraph()->selection().dropDeparted();
    }
    return curve;
}

void CurveTree::remove(const QString& dotName)
{
    const QString name = dotName; // perhaps the node's own
    CurveNode* node = findCurve(name);
    if (!node) {
        return;
    }
    const CurveVisit visit(this);
    const QList<CurveNode*> leaving = linkedNodes(name);
    tops.removeAll(node);
    for (CurveNode* top : std::as_const(tops)) {
        top->removeNode(name);
    }
    editing.remove(node);
    // Only curves of the editing set are drawn, also when an undo puts this one back.
    node->setActive(false);
    for (CurveNode* left : leaving) {
        discardUnlinked(left);
    }
}

void CurveTree::clear()
{
    const CurveVisit visit(this);
    leaveEditing();
    const QList<CurveNode*> leaving = std::exchange(tops, {});
    for (CurveNode* top : leaving) {
        top->setActive(false);
        unlinked.take(top);
    }
}

void CurveTree::discardUnlinked(CurveNode* node)
{
    if (isKnown(node) && !node->parentNode() && !tops.contains(node)) {
        unlinked.take(node);
    }
}

QStringList CurveTree::edit(const QList<CurveNode*>& wanted)
{
    const CurveVisit visit(this);
    const QList<CurveNode*> former = editing.curves();
    QStringList entered = editing.replace(wanted);
    for (CurveNode* curve : former) {
        unlinked.nameDropped(curve);
    }
    return entered;
}

void CurveTree::leaveEditing()
{
    const QList<CurveNode*> former = editing.leave();
    for (CurveNode* curve : former) {
        unlinked.nameDropped(curve);
    }
}
