#pragma once

#include "core/LifeToken.h"
#include "curves/UnlinkedCurves.h"

#include <QList>
#include <QMultiHash>
#include <QSet>
#include <QStringList>

#include <memory>

class CanvasFunctionBase;
class CurveHost;
class CurveNode;
class EditingSet;

namespace curve_editor {
struct NodeStruct;
} // namespace curve_editor

/// The curve objects of a canvas by their dotted names: groups, and curves under them.
///
///     EditingSet editing;
///     CurveTree tree(editing, nullptr);
///     CurveNode* curve = tree.add(record); // of "body.width"
///     tree.findCurve("body")->curves() == QList<CurveNode*>{curve};
///
/// The tree owns what is linked to it, and what has left it until nobody names it any more: see
/// CurveHold and CurveVisit. At its end it frees every node that was made for it.
class CurveTree
{
public:
    /// `editing` is told of curves that leave or end, and `host` is asked for what curves want to
    /// know of whoever shows them. Neither is owned, both outlive the tree; `host` may be null.
    CurveTree(EditingSet& editing, CurveHost* host);
    CurveTree(const CurveTree&) = delete;
    CurveTree& operator=(const CurveTree&) = delete;
    ~CurveTree();

    CurveHost* host() const;

    /// @name Looking up
    /// @{
    /// The first node of that name that a walk of the tree meets, a group or a curve; null if there
    /// is none.
    CurveNode* findCurve(const QString& dotName) const;
    /// The same where a curve answers; null where a group does.
    CurveNode* findLeaf(const QString& dotName) const;
    /// The same as findCurve for each name, in this order, without null.
    QList<CurveNode*> findAll(const QStringList& dotNames) const;
    /// The nodes on top, owned by the tree.
    QList<CurveNode*> topNodes() const;
    /// Whether a living node made for this tree has this address.
    bool isKnown(CurveNode* node) const;
    /// Whether a walk of the tree meets the node, which is living.
    bool isLinked(const CurveNode* node) const;
    /// @}

    /// @name Changing
    /// @{
    /// The group that a curve of this name goes into, made where it is missing. Null where the
    /// curve is to stand on top: its name has one element, or two of equal text at its start and
    /// end, or a curve stands in the way of a group.
    CurveNode* ensurePath(const QString& dotName);
    /// Makes a curve of what the record lends, or gives back the node of that name, which may be a
    /// group.
    CurveNode* add(const curve_editor::NodeStruct& record);
    /// Puts an unlinked curve back, and owns it from then on, unless a node of its name is there,
    /// which is given back then. Null, too, for a curve that has been freed.
    CurveNode* attach(CurveNode* curve);
    /// Unlinks the nodes of that name, and frees them as soon as nobody names them.
    void remove(const QString& dotName);
    /// The same with all nodes that are linked; no curve is being edited any more.
    void clear();
    /// Frees a node that stands unlinked as soon as nobody names it; does nothing on any other.
    void discardUnlinked(CurveNode* node);
    /// Exactly these are being edited from now on: see EditingSet::replace. Curves that had left
    /// with their group may end.
    QStringList edit(const QList<CurveNode*>& wanted);
    /// @}

    /// @name Called by nodes when they come to life, when they get a new name, when the last hold
    /// of them has ended and when they die
    /// @{
    void nodeCreated(CurveNode* node);
    void nodeRenamed(CurveNode* node, const QString& oldDotName);
    void nodeReleased(CurveNode* node);
    void nodeDestroyed(CurveNode* node);
    /// @}

    /// @name For CurveVisit
    /// @{
    void beginVisit();
    void endVisit();
    /// Expired once the tree is destroyed.
    std::weak_ptr<const void> watchLife() const;
    /// @}

private:
    void link(CurveNode* node, CurveNode* group);
    void leaveEditing();
    QList<CurveNode*> linkedNodes(const QString& dotName) const;

    EditingSet& editing;                         ///< not owned
    CurveHost* curveHost;                        ///< not owned
    QList<CurveNode*> tops;                      ///< owned
    QSet<CurveNode*> nodes;                      ///< every living node, linked or not
    QMultiHash<QString, CurveNode*> nodesByName; ///< the same by dotted name
    UnlinkedCurves unlinked;
    LifeToken life;
};

/// The tree of a canvas; null for null. Defined where canvases are.
CurveTree* treeOf(CanvasFunctionBase* canvas);
