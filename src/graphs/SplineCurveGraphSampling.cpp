// The pixels of a curve, worked out from spline and expression.

#include "core/CurveLimits.h"
#include "core/EvaluationTime.h"
#include "core/Truncate.h"
#include "graphs/CurveTracing.h"
#include "graphs/EvaluatedCurve.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace {

constexpr double samplesPerView = 1000.0;
// A tail of more samples begins far to the left of the view.
constexpr double mostTailSamples = 10000.0;

/// Times from + i * step for i from 0 to last.
struct SampleTimes
{
    double from = 0.0;
    double step = 0.0;
    int last = 0;

    double at(const int& index) const { return index * step + from; }
};

/// How many steps the density of the view asks for; may be infinite, NaN or negative.
double stepsBetween(const ViewPort& view, const double& from, const double& to)
{
    return (to - from) * samplesPerView / (view.maxX - view.minX);
}

SampleTimes timesBetweenKeys(const ViewPort& view, const double& from, const double& to)
{
    SampleTimes times;
    times.from = from;
    const double steps = to - from > 0.0 ? stepsBetween(view, from, to) : 0.0;
    if (steps > 0.0 && std::isfinite(steps)) {
        times.step = (to - from) / steps;
        times.last = truncateToInt(steps);
    }
    return times;
}

/// The times from the last key to the right edge; false when there is no tail.
bool tailTimes(const ViewPort& view, const double& lastKeyTime, SampleTimes& times)
{
    times.from = lastKeyTime;
    if (!(view.maxX > times.from)) {
        return false;
    }
    double steps = stepsBetween(view, times.from, view.maxX);
    if (std::isfinite(steps) && steps > mostTailSamples) {
        times.from = std::max(lastKeyTime, view.minX);
        steps = stepsBetween(view, times.from, view.maxX);
    }
    if (!std::isfinite(steps) || steps < 0.0 || steps > mostTailSamples) {
        return false;
    }
    times.step = steps > 0.0 ? (view.maxX - times.from) / steps : 0.0;
    times.last = truncateToInt(steps);
    return true;
}

/// World to pixels for samples: y is held just outside the canvas.
class SamplePixels
{
public:
    explicit SamplePixels(const ViewPort& view)
        : minX(view.minX)
        , maxY(view.maxY)
        , height(view.viewHeight)
        , scaleX(view.viewWidth / (view.maxX - view.minX))
        , scaleY(view.viewHeight / (view.maxY - view.minY))
    {}

    QPoint at(const double& time, const double& value) const
    {
        double y = (maxY - value) * scaleY;
        if (y < -1.0) {
            y = -1.0;
        } else if (y > height) {
            y = height;
        }
        return QPoint(truncateToPixel((time - minX) * scaleX), truncateToPixel(y));
    }

private:
    double minX;
    double maxY;
    double height;
    double scaleX;
    double scaleY;
};

/// Memory for the next curve.
std::vector<curve_tracing::Moment>& spareMoments()
{
    static thread_local std::vector<curve_tracing::Moment> spare;
    return spare;
}

/// The moments of the course between the keys and, from `tail` on, of the one behind them. All are
/// taken down before anything is asked for at them: whoever is asked may change the keys.
struct CourseMoments
{
    std::vector<curve_tracing::Moment> list;
    std::size_t tail = 0;
};

template <typename IsHeld>
void collectMoments(CourseMoments& moments, const ViewPort& view, SplineBase& spline,
                    const double& begin, const double& end, const bool& bends, IsHeld isHeld)
{
    const curve_tracing::Keys& keys = spline.getControlPoints();
    const double scale = view.viewWidth / (view.maxX - view.minX);
    curve_tracing::momentsOfKeys(keys, begin, end, bends, scale, spline, isHeld, moments.list);
    moments.tail = moments.list.size();

    const double from = std::max(end, view.minX);
    if (!(from < view.maxX) || !std::isfinite(view.maxX - from)) {
        return;
    }
    const SplineBase::nodeType behaviour = spline.lastNodeType();
    const bool repeats = behaviour == SplineBase::loop || behaviour == SplineBase::loopOffset;
    const double behind = std::nextafter(from, view.maxX); // where the value may have jumped
    moments.list.push_back({from, 0.0});
    moments.list.push_back({behind, 0.0});
    if (bends || repeats || behaviour == SplineBase::followTangent) {
        std::vector<double> times;
        curve_tracing::timesOfTail(keys, repeats, behind, view.maxX, scale, times);
        for (const double& time : times) {
            moments.list.push_back({time, 0.0});
        }
    }
    moments.list.push_back({view.maxX, 0.0});
}

/// The course as it is painted. `isLost` tells that the spline has been destroyed on the way.
template <typename LimitedAt, typename TailAt, typename IsLost>
void trace(CurveCourse& course, const CourseMoments& moments, LimitedAt limitedAt, TailAt tailAt,
           IsLost isLost)
{
    for (std::size_t i = 0; i < moments.list.size(); ++i) {
        const auto& [time, raw] = moments.list[i];
        const double value = i < moments.tail ? limitedAt(time, raw) : tailAt(time);
        if (isLost()) {
            return;
        }
        if (i < moments.tail) {
            course.add(time, value, raw);
        } else {
            course.addTail(time, value);
        }
    }
}

/// Fills the three polygons. False if the spline was destroyed on the way.
template <typename LimitedAt, typename TailAt, typename IsLost>
bool samplePolygons(SplineCurveGraph& graph, const ViewPort& view, const SampleTimes& times,
                    const double& end, SplineBase& spline, LimitedAt limitedAt, TailAt tailAt,
                    IsLost isLost)
{
    const SamplePixels pixels(view);
    graph.curvePixels.clear();
    graph.rawPixels.clear();
    graph.curvePixels.reserve(times.last + 1);
    graph.rawPixels.reserve(times.last + 1);
    for (int i = 0; i <= times.last; ++i) {
        const double time = times.at(i);
        const double raw = spline(time);
        const double limited = limitedAt(time, raw);
        if (isLost()) {
            return false;
        }
        graph.curvePixels << pixels.at(time, limited);
        graph.rawPixels << pixels.at(time, raw);
    }

    graph.tailPixels.clear();
    SampleTimes tail;
    if (tailTimes(view, end, tail)) {
        graph.tailPixels.reserve(tail.last + 1);
        for (int i = 0; i <= tail.last; ++i) {
            const double value = tailAt(tail.at(i));
            if (isLost()) {
                return false;
            }
            graph.tailPixels << pixels.at(tail.at(i), value);
        }
    }
    return true;
}

/// Fills the polygons and the course that is painted. `limitedAt` gives the value to draw between
/// the keys from the time and the spline's own value, `tailAt` the one behind them from the time. A
/// refresh function that they call may destroy the spline, which ends it.
template <typename LimitedAt, typename TailAt>
void sample(SplineCurveGraph& graph, const ViewPort& view, SplineBase& spline, const bool& bends,
            LimitedAt limitedAt, TailAt tailAt)
{
    const PointInfo* firstKey = spline.getFirst();
    const PointInfo* lastKey = spline.getLast();
    if (!firstKey || !lastKey) {
        return;
    }
    const double begin = firstKey->time > view.minX ? firstKey->time : view.minX;
    const double end = lastKey->time < view.maxX ? lastKey->time : view.maxX;
    const auto isLost = [&] { return graph.selection().spline() != &spline; };
    const SampleTimes times = timesBetweenKeys(view, begin, end);
    if (!samplePolygons(graph, view, times, end, spline, limitedAt, tailAt, isLost) || isLost()) {
        return;
    }
    CourseMoments moments;
    moments.list = std::exchange(spareMoments(), {}); // a nested paint has its own
    moments.list.clear();
    const auto isHeld = [&](const double& value) { return limitedAt(begin, value) != value; };
    collectMoments(moments, view, spline, begin, end, bends, isHeld);
    graph.course.clear(view);
    trace(graph.course, moments, limitedAt, tailAt, isLost);
    spareMoments() = std::move(moments.list);
}

} // namespace

/// Takes the view and places the keys. False when there is nothing to sample: the other polygons
/// then stay as they were.
bool SplineCurveGraph::startRebuild(ViewPort* newView)
{
    view = newView;
    rebuildKeyPixels();
    pixelsAreOld = false;
    return !keyPixels.isEmpty();
}

void SplineCurveGraph::rebuildSpline(ViewPort* newView, const float& minValue,
                                     const float& maxValue)
{
    if (!startRebuild(newView)) {
        return;
    }
    SplineBase& spline = *keySelection.spline();
    const auto limited = [&](const double&, const double& raw) {
        return clampToLimits(raw, minValue, maxValue);
    };
    const auto tail = [&](const double& time) {
        return clampToLimits(spline(time), minValue, maxValue);
    };
    sample(*this, *view, spline, false, limited, tail);
}

void SplineCurveGraph::rebuildSplineWithExpression(ViewPort* newView, const float& minValue,
                                                   const float& maxValue,
                                                   FunctionFloatBase* expression)
{
    if (!startRebuild(newView)) {
        return;
    }
    SplineBase& spline = *keySelection.spline();
    const double fps = view->fps;
    EvaluationTime moment;
    const auto limited = [&](const double& time, const double& raw) {
        moment.set(time, fps);
        const curve_editor::EvaluatedCurve asked(&spline, expression);
        // Where the spline jumps, `raw` may be its value before.
        const double jump = raw - spline(time);
        const double sum = spline(time, expression, fps) + jump;
        const double value = clampToLimits(sum, minValue, maxValue);
        return std::isfinite(value) ? value : static_cast<double>(maxValue);
    };
    const auto tail = [&](const double& time) {
        const curve_editor::EvaluatedCurve asked(&spline, expression);
        return clampToLimits(spline(time, expression, fps), minValue, maxValue);
    };
    sample(*this, *view, spline, true, limited, tail);
}
