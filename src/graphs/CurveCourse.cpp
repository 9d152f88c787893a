#include "graphs/CurveCourse.h"

#include "graphs/ViewPort.h"

#include <cmath>

namespace {

// Of a logical pixel: less cannot be seen.
constexpr double nothing = 0.01;

} // namespace

void CurveCourse::clear(const ViewPort& view)
{
    for (StrokeLine* const line : {&limited, &raw, &tail}) {
        line->clear(view.viewHeight);
    }
    minX = view.minX;
    maxY = view.maxY;
    scaleX = view.viewWidth / (view.maxX - view.minX);
    scaleY = view.viewHeight / (view.maxY - view.minY);
    isApart = false;
}

void CurveCourse::drop()
{
    for (StrokeLine* const line : {&limited, &raw, &tail}) {
        line->drop();
    }
}

void CurveCourse::add(const double& time, const double& limitedValue, const double& rawValue)
{
    const double x = column(time);
    const double y = row(limitedValue);
    const double rawY = row(rawValue);
    const bool parts = !(std::fabs(y - rawY) <= nothing);
    if (parts && !isApart && !limited.isEmpty()) {
        raw.breakOff();
        raw.add(former.x(), former.y());
    }
    if (parts || isApart) {
        raw.add(x, rawY);
    }
    isApart = parts;
    limited.add(x, y);
    former = QPointF(x, y);
}

void CurveCourse::addTail(const double& time, const double& value)
{
    tail.add(column(time), row(value));
}
