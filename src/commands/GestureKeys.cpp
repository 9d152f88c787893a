#include "commands/GestureKeys.h"

#include "commands/EligibleCurves.h"
#include "core/SplineBase.h"
#include "editor/CurveEditor.h"

#include <QtAlgorithms>

#include <algorithm>
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

/// From here on one sort of the whole spline is cheaper than moving each key.
const std::size_t manyKeys = 100;

/// A key to be moved.
struct Place
{
    int index;           ///< in the spline, before anything moves
    qsizetype listIndex; ///< in the lists of keys and copies
};

std::vector<Place> placesInOrder(SplineBase& spline, const QList<PointInfo*>& points)
{
    std::vector<Place> places;
    places.reserve(static_cast<std::size_t>(points.size()));
    for (qsizetype i = 0; i < points.size(); ++i) {
        const int index = spline.findIndex(points[i]);
        if (index >= 0) {
            places.push_back({index, i});
        }
    }
    std::sort(places.begin(), places.end(),
              [](const Place& a, const Place& b) { return a.index < b.index; });
    return places;
}

/// Gives keys the times of their copies: those that move to the right from the right end on, then
/// the others from the left end on. So keys that move together never pass each other.
void retimeOneByOne(SplineBase& spline, const std::vector<Place>& places,
                    const QList<PointInfo*>& points, const QList<PointInfo*>& copies)
{
    std::vector<Place> others;
    for (auto place = places.rbegin(); place != places.rend(); ++place) {
        const double time = copies[place->listIndex]->time;
        if (time > points[place->listIndex]->time) {
            spline.setTime(points[place->listIndex], time);
        } else {
            others.push_back(*place);
        }
    }
    for (auto place = others.rbegin(); place != others.rend(); ++place) {
        spline.setTime(points[place->listIndex], copies[place->listIndex]->time);
    }
}

/// The same for many keys, which may have far to go: copies without update leave the order upset,
/// and the key re-timed after them restores it for all at once.
void retimeAtOnce(SplineBase& spline, const std::vector<Place>& places,
                  const QList<PointInfo*>& points, const QList<PointInfo*>& copies)
{
    for (const Place& place : places) {
        PointInfo retimed = *points[place.listIndex];
        retimed.time = copies[place.listIndex]->time;
        spline.copyPointNoUpdate(points[place.listIndex], &retimed);
    }
    const PointInfo* const first = points[places.front().listIndex];
    spline.setTime(first, first->time);
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
        const std::vector<Place> places = placesInOrder(*spline, points[node]);
        const auto retime = places.size() > manyKeys ? retimeAtOnce : retimeOneByOne;
        retime(*spline, places, points[node], states[node]);
        for (const Place& place : places) {
            write(*points[node][place.listIndex], *states[node][place.listIndex]);
        }
        if (!places.empty()) {
            spline->setChanged(true);
        }
    }
}

} // namespace curve_editor
