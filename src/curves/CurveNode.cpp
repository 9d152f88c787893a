#include "curves/CurveNode.h"

#include "core/SplineBase.h"
#include "curves/CurveTree.h"
#include "curves/CurveVisit.h"
#include "files/CurveType.h"

#include <QColor>
#include <QStringList>

CurveNode::CurveNode(CanvasFunctionBase* canvas, const QString& name, const QString& path)
    : CurveNode(treeOf(canvas), name, path, leaf)
{
    childList = std::make_unique<QList<CurveNode*>>();
}

CurveNode::CurveNode(CurveTree& owner, const QString& name, const QString& path)
    : CurveNode(&owner, name, path, leaf)
{
    childList = std::make_unique<QList<CurveNode*>>();
}

CurveNode::CurveNode(CurveTree* owner, const QString& name, const QString& path, leafTag)
    : tree(owner)
    , ownName(name)
    , parentPath(path)
{
    if (tree) {
        tree->nodeCreated(this);
    }
}

CurveNode::~CurveNode()
{
    if (tag) {
        *tag = nullptr;
    }
    unlink();
    if (childList) {
        const QList<CurveNode*> doomed = *childList;
        childList->clear();
        for (CurveNode* child : doomed) {
            child->parent = nullptr;
            delete child;
        }
    }
    if (tree) {
        tree->nodeDestroyed(this);
    }
}

bool CurveNode::isCurve() const
{
    return false;
}

void CurveNode::setColor(const QColor& color, const QColor& background)
{
    for (CurveNode* child : *childList) {
        child->setColor(color, background);
    }
}

void CurveNode::updateGraph(ViewPort* viewport)
{
    const CurveVisit visit(tree);
    const QList<CurveNode*> all = *childList;
    for (CurveNode* child : all) {
        child->updateGraph(viewport);
    }
}

QList<CurveNode*>* CurveNode::children()
{
    return childList.get();
}

void CurveNode::addChild(CurveNode* child)
{
    if (!childList || !child || child == this) {
        return;
    }
    child->unlink();
    childList->append(child);
    child->parent = this;
    child->noteUnnamedNode();
}

int CurveNode::curveType()
{
    if (childList->isEmpty()) {
        return mixedCurves;
    }
    const int firstType = childList->first()->curveType();
    for (CurveNode* child : *childList) {
        const int type = child->curveType();
        const bool mixes = firstType == splineCurve || type == splineCurve || type == mixedCurves;
        if (type != firstType && mixes) {
            return mixedCurves;
        }
    }
    return firstType;
}

QList<SplineBase*> CurveNode::splines()
{
    QList<SplineBase*> all;
    for (CurveNode* child : *childList) {
        all += child->splines();
    }
    return all;
}

SplineBase* CurveNode::spline()
{
    return nullptr;
}

FunctionFloatBase* CurveNode::expression()
{
    return nullptr;
}

FunctionFloatBase** CurveNode::expressionSlot()
{
    return nullptr;
}

void CurveNode::draw(ViewPort* viewport, QPainter* painter)
{
    // A copy: what is evaluated for the pixels may be the host's, who may add or remove curves.
    const CurveVisit visit(tree);
    const QList<CurveNode*> all = *childList;
    for (CurveNode* child : all) {
        child->draw(viewport, painter);
    }
}

QList<CurveNode*> CurveNode::curves()
{
    if (isCurve()) {
        return {this};
    }
    QList<CurveNode*> leaves;
    for (CurveNode* child : *childList) {
        leaves += child->curves();
    }
    return leaves;
}

void CurveNode::setActive(bool active)
{
    for (CurveNode* child : *childList) {
        child->setActive(active);
    }
}

void CurveNode::removeExpression(const bool&)
{
    for (CurveNode* child : *childList) {
        child->removeExpression(true);
    }
}

void CurveNode::removeNode(const QString& dotName)
{
    CurveNode* found = findNode(dotName);
    if (!found) {
        return;
    }
    if (found->parent == this) {
        found->unlink();
        return;
    }
    for (CurveNode* child : *childList) {
        child->removeNode(dotName);
    }
}

SplineCurveGraph* CurveNode::splineGraph()
{
    return nullptr;
}

void CurveNode::reserved() {}

void CurveNode::setExpression(FunctionFloatBase* expression, ParseMessage& message)
{
    for (CurveNode* child : *childList) {
        child->setExpression(expression, message);
    }
}

void CurveNode::markChanged()
{
    for (CurveNode* child : *childList) {
        child->markChanged();
    }
}

void CurveNode::setAddFunc(const bool& add)
{
    const int type = curveType();
    if (type == splineCurve || type == mixedCurves) {
        return;
    }
    for (CurveNode* child : *childList) {
        child->setAddFunc(add);
    }
}

void CurveNode::reset()
{
    // A copy: each reset is reported to the host, who may take curves away, and this group.
    const CurveVisit visit(tree);
    const QList<CurveNode*> all = *childList;
    for (CurveNode* child : all) {
        if (childList->contains(child)) {
            child->reset();
        }
    }
}

bool CurveNode::notifiesHost() const
{
    return reportsToHost;
}

void CurveNode::setNotifiesHost(const bool& notifies)
{
    reportsToHost = notifies;
}

CurveNode* CurveNode::parentNode() const
{
    return parent;
}

std::shared_ptr<CurveNode*> CurveNode::holdTag()
{
    if (!tag) {
        tag = std::make_shared<CurveNode*>(this);
    }
    return tag;
}

bool CurveNode::isHeld() const
{
    return tag.use_count() > 1;
}

void CurveNode::holdEnded()
{
    if (tree) {
        tree->nodeReleased(this);
    }
}

void CurveNode::unlink()
{
    if (parent) {
        parent->childList->removeOne(this);
        parent = nullptr;
    }
}
