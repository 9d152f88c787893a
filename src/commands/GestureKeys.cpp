#include "commands/GestureKeys.h"

#include "commands/EligibleCurves.h"
#include "core/SplineBase.h"
#include "curves/KeyRetiming.h"
#include "editor/CurveEditor.h"

#include <QtAlgorithms>

#include <utility>
#include <vector>

namespace curve_editor {

namespace {

QList<PointInfo*> copiesOf(const QList<PointInfo*>& points)
{
    QList<PointInfo*> copies;
    copies.reserve(points.size());
    for (const PointInfo* point : points) {
        copies.append(new PointInfo(*point));
    }
    return copies;
}

void freeCopies(QList<QList<PointInfo*>>& lists)
{
    for (const QList<PointInfo*>& list : std::as_const(lists)) {
        qDeleteAll(list);
    }
    lists.clear();
}

} // namespace

GestureKeys::GestureKeys(CurveEditor* curveEditor)
    : editor(curveEditor)
    , nodes(eligibleRecords(curveEditor))
{
    for (const NodeStruct* node : std::as_const(nodes)) {
        points.append(selectedPointsOf(editor, node));
        before.append(copiesOf(points.last()));
    }
}

GestureKeys::~GestureKeys()
{
    freeCopies(before);
    freeCopies(after);
}

bool GestureKeys::capture(const Comparison& isSame)
{
    freeCopies(after);
    dropDeparted();
    for (const QList<PointInfo*>& list : std::as_const(points)) {
        after.append(copiesOf(list));
    }
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        for (qsizetype i = 0; i < before[node].size(); ++i) {
            if (!isSame(*before[node][i], *after[node][i])) {
                return true;
            }
        }
    }
    return false;
}

void GestureKeys::applyBefore(const Writer& write)
{
    apply(before, write);
}

void GestureKeys::applyAfter(const Writer& write)
{
    apply(after, write);
}

void GestureKeys::report()
{
    editor->emitSignalCurvesHaveChanged(nodes);
}

void GestureKeys::dropDeparted()
{
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        SplineBase* const spline = nodes[node]->livingSpline();
        QList<PointInfo*> keptPoints;
        QList<PointInfo*> keptCopies;
        for (qsizetype i = 0; i < points[node].size(); ++i) {
            if (spline && spline->findIndex(points[node][i]) >= 0) {
                keptPoints.append(points[node][i]);
                keptCopies.append(before[node][i]);
            } else {
                delete before[node][i];
            }
        }
        points[node] = keptPoints;
        before[node] = keptCopies;
    }
}

void GestureKeys::apply(const PointLists& states, const Writer& write)
{
    const qsizetype count = qMin(nodes.size(), states.size());
    for (qsizetype node = 0; node < count; ++node) {
        SplineBase* const spline = nodes[node]->livingSpline();
        if (!spline) {
            continue;
        }
        std::vector<RetimedKey> held;
        std::vector<const PointInfo*> copies;
        for (qsizetype i = 0; i < points[node].size(); ++i) {
            if (spline->findIndex(points[node][i]) >= 0) {
                held.push_back({points[node][i], states[node][i]->time});
                copies.push_back(states[node][i]);
            }
        }
        retimeKeys(*spline, held);
        for (std::size_t i = 0; i < held.size(); ++i) {
            write(*held[i].key, *copies[i]);
        }
        if (!held.empty()) {
            spline->setChanged(true);
        }
    }
}

} // namespace curve_editor
