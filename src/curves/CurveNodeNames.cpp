// The names of the nodes of the tree, and how a new name of one reaches the nodes under it.

#include "curves/CurveNode.h"

#include "curves/CurveTree.h"

namespace {

const QLatin1Char point('.');

} // namespace

QString CurveNode::name() const
{
    return ownName;
}

QString CurveNode::path() const
{
    return parentPath;
}

QString CurveNode::dotName() const
{
    return parentPath.isEmpty() && !underUnnamedNode ? ownName : parentPath + point + ownName;
}

CurveNode* CurveNode::findNode(const QString& dotName)
{
    if (isNamed(dotName)) {
        return this;
    }
    for (CurveNode* child : *childList) {
        if (CurveNode* found = child->findNode(dotName)) {
            return found;
        }
    }
    return nullptr;
}

void CurveNode::setDotName(const QString& dotName)
{
    const QString lastElement = dotName.section(point, -1);
    // A negative length, of a name without a point, keeps the whole name.
    setNames(lastElement, parentPath.isEmpty()
                              ? QString()
                              : dotName.left(dotName.length() - lastElement.length() - 1));
    renameChildren();
}

void CurveNode::setRootName(const QString& rootName)
{
    const QString first = parentPath.section(point, 0, 0);
    if (rootName != first) {
        setPath(rootName + parentPath.mid(first.length()));
    }
}

void CurveNode::setPath(const QString& path)
{
    setNames(ownName, path);
    renameChildren();
}

void CurveNode::setNames(const QString& name, const QString& path)
{
    const QString oldDotName = CurveNode::dotName();
    ownName = name;
    parentPath = path;
    underUnnamedNode = isUnderUnnamedNode();
    if (tree) {
        tree->nodeRenamed(this, oldDotName);
    }
}

/// The same as comparing with dotName(), without building it.
bool CurveNode::isNamed(const QString& dotName) const
{
    if (parentPath.isEmpty() && !underUnnamedNode) {
        return dotName == ownName;
    }
    return dotName.length() == parentPath.length() + 1 + ownName.length() &&
           dotName.at(parentPath.length()) == point && dotName.endsWith(ownName) &&
           dotName.startsWith(parentPath);
}

void CurveNode::renameChildren()
{
    for (CurveNode* child : *childList) {
        child->setPath(dotName());
    }
}

/// A top node may have the empty name: its children have an empty path and a point in front.
bool CurveNode::isUnderUnnamedNode() const
{
    return parentPath.isEmpty() && parent && parent->dotName().isEmpty();
}

/// To be called when the node has come under another one.
void CurveNode::noteUnnamedNode()
{
    if (isUnderUnnamedNode() && !underUnnamedNode) {
        setNames(ownName, parentPath);
        if (childList) {
            renameChildren();
        }
    }
}
