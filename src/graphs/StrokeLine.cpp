#include "graphs/StrokeLine.h"

#include <algorithm>
#include <cmath>

namespace {

// Logical pixels off the canvas where no line is seen any more.
constexpr double margin = 4.0;
// Lines to what lies farther off keep their direction only nearly.
constexpr double farthest = 1e9;

} // namespace

void StrokeLine::clear(const double& canvasHeight)
{
    points.clear();
    starts.clear();
    isBroken = true;
    bottom = canvasHeight + margin;
}

void StrokeLine::drop()
{
    points = QPolygonF(); // where clear would keep the memory
    starts = std::vector<qsizetype>();
    isBroken = true;
}

void StrokeLine::breakOff()
{
    isBroken = true;
}

const QPointF* StrokeLine::piece(const qsizetype& index) const
{
    return points.constData() + starts[static_cast<std::size_t>(index)];
}

qsizetype StrokeLine::pieceSize(const qsizetype& index) const
{
    const auto next = static_cast<std::size_t>(index) + 1;
    return (next < starts.size() ? starts[next] : points.size()) - starts[next - 1];
}

double StrokeLine::held(const double& y) const
{
    return std::clamp(y, -margin, bottom);
}

/// Adds the point in which the way from the last point crosses a border, if it does.
void StrokeLine::crossBorder(const double& border, const double& x, const double& y)
{
    if ((lastY < border) != (y < border) && lastY != border && y != border) {
        append(lastX + (border - lastY) / (y - lastY) * (x - lastX), border);
    }
}

/// Of points along a border only the two ends stay.
void StrokeLine::append(const double& x, const double& y)
{
    const qsizetype count = points.size();
    const bool runsOn = count - starts.back() >= 2 && (y == -margin || y == bottom) &&
                        points.at(count - 1).y() == y && points.at(count - 2).y() == y;
    if (runsOn) {
        points.last().setX(x);
    } else {
        points.append(QPointF(x, y));
    }
}

void StrokeLine::add(const double& x, const double& y)
{
    if (!std::isfinite(x)) {
        return;
    }
    const double row = std::isnan(y) ? 0.0 : std::clamp(y, -farthest, farthest);
    if (isBroken) {
        isBroken = false;
        starts.push_back(points.size());
    } else if (row > lastY) {
        crossBorder(-margin, x, row);
        crossBorder(bottom, x, row);
    } else {
        crossBorder(bottom, x, row);
        crossBorder(-margin, x, row);
    }
    append(x, held(row));
    lastX = x;
    lastY = row;
}
