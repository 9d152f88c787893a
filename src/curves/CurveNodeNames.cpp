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
    return parentPath.isEmpty() ? ownName : parentPath + point + ownName;
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
    const QString oldDotName = this->dotName();
    const QString lastElement = dotName.section(point, -1);
    // A negative length, of a name without a point, keeps the whole name.
    setNames(lastElement, parentPath.isEmpty()
                              ? QString()
                              : dotName.left(dotName.length() - lastElement.length() - 1));
    renameChildren(oldDotName);
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
    const QString oldDotName = dotName();
    setNames(ownName, path);
    renameChildren(oldDotName);
}

void CurveNode::setNames(const QString& name, const QString& path)
{
    const QString oldDotName = CurveNode::dotName();
    ownName = name;
    parentPath = path;
    if (tree) {
        tree->nodeRenamed(this, oldDotName);
    }
}

/// The same as comparing with dotName(), without building it.
bool CurveNode::isNamed(const QString& dotName) const
{
    if (parentPath.isEmpty()) {
        return dotName == ownName;
    }
    return dotName.length() == parentPath.length() + 1 + ownName.length() &&
           dotName.at(parentPath.length()) == point && dotName.endsWith(ownName) &&
           dotName.startsWith(parentPath);
}

void CurveNode::renameChildren(const QString& oldDotName)
{
    for (CurveNode* child : *childList) {
        child->setPath(pathUnder(oldDotName, child->parentPath));
    }
}

/// A child's path after this node was renamed. A curve named a.b.b stands right under a with the
/// path a.b: what its path has beyond the group's name stays.
QString CurveNode::pathUnder(const QString& oldDotName, const QString& childPath) const
{
    const bool reachesDeeper = childPath.startsWith(oldDotName + point);
    return reachesDeeper ? dotName() + childPath.mid(oldDotName.length()) : dotName();
}
