#include "commands/PointCopies.h"

#include "core/SplineBase.h"
#include "curves/NodeStruct.h"

#include <QtAlgorithms>

#include <utility>

#include <algorithm>
#include <vector>

namespace curve_editor {

namespace {

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
        if (index >= 0)
            places.push_back({index, i});
    }
    std::sort(places.begin(), places.end(),
              [](const Place& a, const Place& b) { return a.index < b.index; });
    return places;
}

} // namespace

QList<PointInfo*> copiesOf(const QList<PointInfo*>& points)
{
    QList<PointInfo*> copies;
    copies.reserve(points.size());
    for (const PointInfo* point : points)
        copies.append(new PointInfo(*point));
    return copies;
}

void freeCopies(PointLists& lists)
{
    for (const QList<PointInfo*>& list : std::as_const(lists))
        qDeleteAll(list);
    lists.clear();
}

void dropDeparted(const QList<NodeStruct*>& nodes, PointLists& points, PointLists& copies)
{
    for (qsizetype node = 0; node < nodes.size(); ++node) {
        SplineBase* const spline = nodes[node]->livingSpline();
        QList<PointInfo*> keptPoints;
        QList<PointInfo*> keptCopies;
        for (qsizetype i = 0; i < points[node].size(); ++i) {
            if (spline && spline->findIndex(points[node][i]) >= 0) {
                keptPoints.append(points[node][i]);
                keptCopies.append(copies[node][i]);
            } else {
                delete copies[node][i];
            }
        }
        points[node] = keptPoints;
        copies[node] = keptCopies;
    }
}

void restoreTimes(SplineBase& spline, const QList<PointInfo*>& points,
                  const QList<PointInfo*>& copies)
{
    const std::vector<Place> places = placesInOrder(spline, points);
    std::vector<Place> others;
    for (auto place = places.rbegin(); place != places.rend(); ++place) {
        const double time = copies[place->listIndex]->time;
        if (time > points[place->listIndex]->time)
            spline.setTime(points[place->listIndex], time);
        else
            others.push_back(*place);
    }
    for (auto place = others.rbegin(); place != others.rend(); ++place)
        spline.setTime(points[place->listIndex], copies[place->listIndex]->time);
}

} // namespace curve_editor
