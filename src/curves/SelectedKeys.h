#pragma once

#include <QList>

class ControlSplineNode;
class CurveNode;
struct KeyRef;
struct PointInfo;

/// How many keys are selected over the curves being edited that have keys.
struct SelectionState
{
    bool any = false;  ///< some curve has a current key and a selected one
    bool many = false; ///< more than one key, on one curve or several
};

/// Reads the times and values of selected keys. A selection names keys that its spline may no
/// longer hold, for another editor can take a key out and free it; and a step of the arrow keys
/// can select a key of the leading curve in the selection of another curve.
class SelectedKeys
{
public:
    /// The curves being edited. They must live as long as this object.
    explicit SelectedKeys(const QList<CurveNode*>& curves);

    /// The spline of the selection, or that of another of the curves, holds the key.
    bool mayRead(const ControlSplineNode& selection, const KeyRef& key) const;

    /// The keys of the selection that may be read, in its order.
    QList<const PointInfo*> readable(const ControlSplineNode& selection) const;

    /// The times, in seconds, from the first to the last selected key, over all curves that have
    /// keys, a current one and a selected one. Both 0 where there is none.
    void span(double& first, double& last) const;

private:
    const QList<CurveNode*>& curves; ///< not owned
};
