#pragma once

#include <QList>
#include <QString>

class CanvasFunctionBase;
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
    /// A group. `path` is the dotted name of the parent, empty on a top node.
    CurveNode(CanvasFunctionBase* canvas, const QString& name, const QString& path);
    CurveNode(const CurveNode&) = delete;
    CurveNode& operator=(const CurveNode&) = delete;
    virtual ~CurveNode();

    virtual bool isCurve() const;
    virtual void setColor(const QColor& color, const QColor& background);
    virtual void updateGraph(ViewPort* viewport);
    /// The list of children, owned by the node; null on a leaf.
    virtual QList<CurveNode*>* children();
    /// Takes ownership of the child. Does nothing on a leaf.
    virtual void addChild(CurveNode* child);
    /// See curves/CurveType.h.
    virtual int curveType();
    /// The living splines of the leaves; a curve without one adds nothing.
    virtual QList<SplineBase*> splines();
    virtual SplineBase* spline();
    virtual FunctionFloatBase* expression();
    virtual FunctionFloatBase** expressionSlot();
    virtual void draw(ViewPort* viewport, QPainter* painter);
    /// The flat list of leaves.
    virtual QList<CurveNode*> curves();
    virtual CurveNode* findNode(const QString& dotName);
    virtual QString dotName() const;
    virtual void setActive(bool active);
    /// On a group every child is called with true, whatever was passed.
    virtual void removeExpression(const bool& remove);
    virtual void setDotName(const QString& dotName);
    virtual void setRootName(const QString& rootName);
    /// Unlinks the node of that name from the subtree without deleting it.
    virtual void removeNode(const QString& dotName);
    virtual SplineCurveGraph* splineGraph();
    virtual void reserved();
    /// On a group all children then hold the same expression: callers apply it to leaves.
    virtual void setExpression(FunctionFloatBase* expression, ParseMessage& message);
    virtual void markChanged();
    virtual void setAddFunc(const bool& add);
    virtual void reset();
    virtual QString path() const;
    virtual bool notifiesHost() const;
    virtual void setNotifiesHost(const bool& notifies);
    virtual void setPath(const QString& path);

    QString name() const;

    /// The group that holds this node; null on a top node and on one that was unlinked.
    CurveNode* parentNode() const;

protected:
    enum leafTag : int
    {
        leaf
    };
    CurveNode(CanvasFunctionBase* canvas, const QString& name, const QString& path, leafTag);

    CanvasFunctionBase* canvas; ///< not owned; outlives the node. May be null
    QString ownName;
    QString parentPath;
    bool reportsToHost = true;
    QList<CurveNode*>* childList = nullptr; ///< owned, and so is each child; null on a leaf

private:
    CurveNode* parent = nullptr; ///< not owned
};
