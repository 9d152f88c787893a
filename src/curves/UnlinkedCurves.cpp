#include "curves/UnlinkedCurves.h"

#include "curves/CurveNodeBase.h"
#include "curves/EditingSet.h"

#include <algorithm>

namespace {

CurveNode* rootOf(CurveNode* node)
{
    while (node->parentNode()) {
        node = node->parentNode();
    }
    return node;
}

void dropPixels(CurveNode* root)
{
    for (CurveNode* leaf : root->curves()) {
        if (auto* const curve = dynamic_cast<CurveNodeBase*>(leaf)) {
            curve->dropPixels();
        }
    }
}

} // namespace

UnlinkedCurves::UnlinkedCurves(const EditingSet& editingCurves)
    : editing(editingCurves)
{}

void UnlinkedCurves::take(CurveNode* root)
{
    dropPixels(root);
    roots.insert(root);
    nameDropped(root);
}

void UnlinkedCurves::giveBack(CurveNode* node)
{
    roots.remove(node);
    doubted.remove(node);
}

void UnlinkedCurves::nameDropped(CurveNode* node)
{
    CurveNode* const root = rootOf(node);
    if (roots.contains(root)) {
        doubted.insert(root);
        freeUnnamed();
    }
}

void UnlinkedCurves::beginVisit()
{
    ++visits;
}

void UnlinkedCurves::endVisit()
{
    --visits;
    freeUnnamed();
}

/// A listener to the end of one object may take further curves off the canvas.
void UnlinkedCurves::freeUnnamed()
{
    if (visits > 0) {
        return;
    }
    ++visits;
    while (!doubted.isEmpty()) {
        CurveNode* const root = *doubted.cbegin();
        doubted.remove(root);
        if (root->parentNode()) {
            roots.remove(root); // somebody took it into a group
        } else if (isNamed(root)) {
            dropPixels(root); // a paint that ran while it was unlinked may have made some
        } else {
            roots.remove(root);
            delete root;
        }
    }
    --visits;
}

bool UnlinkedCurves::isNamed(CurveNode* node) const
{
    if (node->isHeld() || editing.contains(node)) {
        return true;
    }
    const QList<CurveNode*>* const children = node->children();
    return children && std::any_of(children->cbegin(), children->cend(),
                                   [this](CurveNode* child) { return isNamed(child); });
}
