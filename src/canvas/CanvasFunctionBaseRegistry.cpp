// Which curves are on the canvas, and which of them are being edited.

#include "canvas/CanvasBackground.h"
#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasGestures.h"
#include "canvas/CanvasHost.h"
#include "canvas/CanvasVisit.h"
#include "canvas/FrameGrid.h"
#include "canvas/FunctionEditor.h"
#include "canvas/SplineCurveGraph.h"
#include "curves/CurveNodeBase.h"
#include "curves/DetachedCurve.h"

#include <algorithm>
#include <utility>

namespace {

const QLatin1Char point('.');

/// A dotted name without its last element; empty when it has but one.
QString pathOf(const QString& dotName)
{
    const auto end = dotName.lastIndexOf(point);
    return end < 0 ? QString() : dotName.left(end);
}

} // namespace

CanvasFunctionBase::CanvasFunctionBase(FunctionEditor* functionEditor, CurveEditor* dialog)
    : QObject(functionEditor)
    , widget(functionEditor)
    , editor(dialog)
    , view(functionEditor)
    , grid(std::make_unique<FrameGrid>(functionEditor))
    , host(curve_editor::canvasHostOf(dialog))
    , gestures(std::make_unique<CanvasGestures>(*this, dialog, host.get(), functionEditor))
{}

CanvasFunctionBase::~CanvasFunctionBase()
{
    grid.reset();
    background.reset();
    clearCurves();
    // What is unlinked and named still, or never was linked. A group takes its children along, so
    // the roots are enough.
    QList<CurveNode*> roots;
    for (CurveNode* node : std::as_const(nodes)) {
        if (!node->parentNode()) {
            roots.append(node);
        }
    }
    qDeleteAll(roots);
}

CurveEditor* CanvasFunctionBase::curveEditor() const
{
    return editor;
}

ViewPort* CanvasFunctionBase::viewPort() const
{
    return view;
}

QList<CurveNode*> CanvasFunctionBase::topNodes() const
{
    return tops;
}

void CanvasFunctionBase::nodeCreated(CurveNode* node)
{
    nodes.insert(node);
    nodesByName.insert(node->dotName(), node);
}

void CanvasFunctionBase::nodeRenamed(CurveNode* node, const QString& oldDotName)
{
    nodesByName.remove(oldDotName, node);
    nodesByName.insert(node->dotName(), node);
}

void CanvasFunctionBase::nodeReleased(CurveNode* node)
{
    unlinked.nameDropped(node);
}

void CanvasFunctionBase::nodeDestroyed(CurveNode* node)
{
    unlinked.giveBack(node);
    nodes.remove(node);
    nodesByName.remove(node->dotName(), node);
    editing.removeAll(node);
    tops.removeAll(node);
}

void CanvasFunctionBase::discardUnlinked(CurveNode* node)
{
    if (nodes.contains(node) && !node->parentNode() && !tops.contains(node)) {
        unlinked.take(node);
    }
}

bool CanvasFunctionBase::isLinked(const CurveNode* node) const
{
    const CurveNode* root = node;
    while (root->parentNode()) {
        root = root->parentNode();
    }
    return std::find(tops.begin(), tops.end(), root) != tops.end();
}

/// Several nodes may share a name: below each top one.
QList<CurveNode*> CanvasFunctionBase::linkedNodes(const QString& dotName) const
{
    QList<CurveNode*> linked = nodesByName.values(dotName);
    linked.removeIf([this](const CurveNode* node) { return !isLinked(node); });
    return linked;
}

/// The first one that a walk of the tree meets. Only where several nodes share the name does it
/// take the walk to tell which that is.
CurveNode* CanvasFunctionBase::findCurve(const QString& dotName) const
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

CurveNode* CanvasFunctionBase::findLeaf(const QString& dotName) const
{
    CurveNode* const found = findCurve(dotName);
    return found && found->isCurve() ? found : nullptr;
}

CurveNode* CanvasFunctionBase::ensurePath(const QString& dotName)
{
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
        auto* created = new CurveNode(this, parts.at(reached), path);
        link(created, group);
        group = created;
    }
    return group;
}

/// Under a group, or on top where that is null.
void CanvasFunctionBase::link(CurveNode* node, CurveNode* group)
{
    unlinked.giveBack(node);
    if (group) {
        group->addChild(node);
    } else {
        node->unlink();
        tops.append(node);
    }
}

CurveNode* CanvasFunctionBase::addCanvasCurve(const QString& dotName, const QColor& color,
                                              const float& curveValue, SplineBase* spline,
                                              FunctionFloatBase** expressionSlot,
                                              const float& minValue, const float& maxValue,
                                              const bool& notifyHost)
{
    if (CurveNode* found = findCurve(dotName)) {
        return found;
    }
    CurveNode* group = ensurePath(dotName);
    // The whole name without its last element, also where the curve lies higher than that: it
    // has to report the name that it was asked for.
    auto* curve =
        new CurveNodeBase(this, dotName.section(point, -1), pathOf(dotName), color, curveValue,
                          spline, expressionSlot, minValue, maxValue, notifyHost);
    curve->setAddFunc(spline && spline->isAddFunc());
    link(curve, group);
    return curve;
}

CurveNode* CanvasFunctionBase::attachCanvasCurve(CurveNode* curve)
{
    if (!nodes.contains(curve)) {
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

void CanvasFunctionBase::removeCanvasCurve(const QString& dotName)
{
    const QString name = dotName; // perhaps the node's own
    endGestureOn(name);
    CurveNode* node = findCurve(name);
    if (!node) {
        return;
    }
    const CanvasVisit visit(this);
    const QList<CurveNode*> leaving = linkedNodes(name);
    tops.removeAll(node);
    for (CurveNode* top : std::as_const(tops)) {
        top->removeNode(name);
    }
    editing.removeAll(node);
    // Only curves of the editing set are drawn, also when an undo puts this one back.
    node->setActive(false);
    for (CurveNode* left : leaving) {
        discardUnlinked(left);
    }
}

void CanvasFunctionBase::clearCurves()
{
    endGestures();
    const CanvasVisit visit(this);
    leaveEditing();
    const QList<CurveNode*> leaving = std::exchange(tops, {});
    for (CurveNode* top : leaving) {
        top->setActive(false);
        unlinked.take(top);
    }
    selectCurves({});
}
