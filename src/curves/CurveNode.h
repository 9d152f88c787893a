#pragma once

#include <QList>
#include <QString>

#include <memory>

class CanvasFunctionBase;
class CurveTree;
class FunctionFloatBase;
class ParseMessage;
class QColor;
class QPainter;
class SplineBase;
class SplineCurveGraph;
class ViewPort;

/// A node of the tree of curves behind the canvas. A CurveNode that is only that is a group: it
/// forwards what it is asked to its children. Leaves are CurveNodeBase.
class CurveNode
{
public:
    /// A group. `path` is the dotted name of the parent, empty on a top node. `canvas` may be null.
    CurveNode(CanvasFunctionBase* canvas, const QString& name, const QString& path);
    /// A group made for a tree, which knows it from now on.
    CurveNode(CurveTree& tree, const QString& name, const QString& path);
    CurveNode(const CurveNode&) = delete;
    CurveNode& operator=(const CurveNode&) = delete;
    virtual ~CurveNode();

    virtual bool isCurve() const;
    /// The dim colour is half way between the colour and the background.
    virtual void setColor(const QColor& color, const QColor& background);
    /// Rebuilds the pixels for a view, if anything changed since they were built.
    virtual void updateGraph(ViewPort* viewport);
    /// The list of children, owned by the node; null on a leaf.
    virtual QList<CurveNode*>* children();
    /// Takes ownership of the child, out of the group that holds it by now. Null is passed over.
    /// Does nothing on a leaf.
    virtual void addChild(CurveNode* child);
    /// See files/CurveType.h. A group takes the type of its first child; mixed when another
    /// child differs and either is a plain spline or mixed, or when there is no child.
    virtual int curveType();
    /// The living splines of the leaves; a curve without one adds nothing.
    virtual QList<SplineBase*> splines();
    virtual SplineBase* spline();
    virtual FunctionFloatBase* expression();
    virtual FunctionFloatBase** expressionSlot();
    virtual void draw(ViewPort* viewport, QPainter* painter);
    /// The flat list of leaves.
    virtual QList<CurveNode*> curves();
    /// This node or the first one under it, depth first, of that dotted name; null if none.
    virtual CurveNode* findNode(const QString& dotName);
    /// The path, a point and the name; the name alone on a top node.
    virtual QString dotName() const;
    /// Whether the curves are drawn.
    virtual void setActive(bool active);
    /// On a group every child is called with true, whatever was passed.
    virtual void removeExpression(const bool& remove);
    /// Gives the node a new dotted name, and the nodes under it theirs. A group on top keeps its
    /// empty path: only its last element counts.
    virtual void setDotName(const QString& dotName);
    /// Replaces the first element of the path.
    virtual void setRootName(const QString& rootName);
    /// Unlinks the node of that name from the subtree without deleting it.
    virtual void removeNode(const QString& dotName);
    /// Null on a group.
    virtual SplineCurveGraph* splineGraph();
    /// Does nothing.
    virtual void reserved();
    /// On a group all children then hold the same expression: callers apply it to leaves.
    virtual void setExpression(FunctionFloatBase* expression, ParseMessage& message);
    virtual void markChanged();
    /// Does nothing on a group of plain splines or of mixed curves.
    virtual void setAddFunc(const bool& add);
    virtual void reset();
    virtual QString path() const;
    /// Whether changes of this curve are reported to the host.
    virtual bool notifiesHost() const;
    /// Children keep their own flag.
    virtual void setNotifiesHost(const bool& notifies);
    /// Writes the dotted name of the parent, and with it those of all nodes under this one.
    virtual void setPath(const QString& path);

    /// The node's own element of the dotted name.
    QString name() const;

    /// The group that holds this node; null on a top node and on one that was unlinked.
    CurveNode* parentNode() const;

    /// Takes the node out of its group, if it stands in one, without deleting it.
    void unlink();

    /// @name For CurveHold
    /// @{
    /// What holds share with the node. It points to the node, and to null after the node's end.
    std::shared_ptr<CurveNode*> holdTag();
    bool isHeld() const;
    /// To be called when the last hold has ended. An unlinked node may be gone afterwards.
    void holdEnded();
    /// @}

protected:
    bool isNamed(const QString& dotName) const;
    /// Writes both parts of the dotted name, of which the tree keeps an index.
    void setNames(const QString& name, const QString& path);

    enum leafTag : int
    {
        leaf
    };
    CurveNode(CurveTree* tree, const QString& name, const QString& path, leafTag);

    CurveTree* tree; ///< not owned; outlives the node. May be null
    QString ownName;
    QString parentPath;
    bool reportsToHost = true;
    std::unique_ptr<QList<CurveNode*>> childList; ///< each child is owned, too; null on a leaf

private:
    void renameChildren();
    bool isUnderUnnamedNode() const;
    void noteUnnamedNode();

    CurveNode* parent = nullptr;     ///< not owned
    bool underUnnamedNode = false;   ///< the path is empty, and is the name of a top node
    std::shared_ptr<CurveNode*> tag; ///< null until the first hold
};
