#pragma once

#include <QList>

class SplineBase;
struct PointInfo;

namespace curve_editor {

struct NodeStruct;

/// One list of keys a node.
using PointLists = QList<QList<PointInfo*>>;

/// Copies of keys, owned by the caller.
QList<PointInfo*> copiesOf(const QList<PointInfo*>& points);

/// Frees all points of all lists and empties them.
void freeCopies(PointLists& lists);

/// Drops the keys that have left their splines, together with the copies made of them.
void dropDeparted(const QList<NodeStruct*>& nodes, PointLists& points, PointLists& copies);

/// Gives keys of a spline the times of their copies, passing few neighbours on the way: those
/// that move to the right from the right end on, then those that move to the left from the left
/// end on. So keys that move together never pass each other.
void restoreTimes(SplineBase& spline, const QList<PointInfo*>& points,
                  const QList<PointInfo*>& copies);

} // namespace curve_editor
