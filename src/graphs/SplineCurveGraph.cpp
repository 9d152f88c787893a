// Selection, colours and the keys with their pixels.

#include "graphs/SplineCurveGraph.h"

#include "core/Truncate.h"
#include "graphs/ViewPort.h"

namespace {

// Keys far outside stay this far off the canvas.
constexpr double offCanvas = 100.0;

double heldBetween(const double& number, const double& low, const double& high)
{
    if (number < low) {
        return low;
    }
    return number > high ? high : number;
}

} // namespace

SplineCurveGraph::SplineCurveGraph(SplineBase* spline, ViewPort* firstView)
    : keySelection(this, spline)
    , view(firstView)
{}

ControlSplineNode& SplineCurveGraph::selection()
{
    return keySelection;
}

const ControlSplineNode& SplineCurveGraph::selection() const
{
    return keySelection;
}

void SplineCurveGraph::setColors(const QColor& mainColor, const QColor& dimColor)
{
    main = mainColor;
    dim = dimColor;
}

QColor SplineCurveGraph::mainColor() const
{
    return main;
}

QColor SplineCurveGraph::dimColor() const
{
    return dim;
}

void SplineCurveGraph::setSpline(SplineBase* spline)
{
    keySelection.setSpline(spline);
    pixelsAreOld = true;
}

void SplineCurveGraph::markPixelsOld()
{
    pixelsAreOld = true;
}

bool SplineCurveGraph::arePixelsOld() const
{
    return pixelsAreOld;
}

void SplineCurveGraph::dropPixels()
{
    for (QPolygon* const pixels : {&keyPixels, &curvePixels, &tailPixels, &rawPixels}) {
        *pixels = QPolygon(); // where clear would keep the memory
    }
    course.drop();
    pixelsAreOld = true;
}

void SplineCurveGraph::rebuildKeyPixels()
{
    keyPixels.clear();
    SplineBase* spline = keySelection.spline();
    if (!spline || !view) {
        return;
    }
    const double scaleX = view->viewWidth / (view->maxX - view->minX);
    const double scaleY = view->viewHeight / (view->maxY - view->minY);
    const std::vector<PointInfo*>& keys = spline->getControlPoints();
    keyPixels.reserve(static_cast<qsizetype>(keys.size()));
    for (const PointInfo* key : keys) {
        const double x = (key->time - view->minX) * scaleX;
        const double y = (view->maxY - key->value) * scaleY;
        keyPixels << QPoint(
            truncateToPixel(heldBetween(x, -offCanvas, view->viewWidth + offCanvas)),
            truncateToPixel(heldBetween(y, -offCanvas, view->viewHeight + offCanvas)));
    }
}

const std::vector<PointInfo*>& SplineCurveGraph::keysWithPixels()
{
    static const std::vector<PointInfo*> none;
    SplineBase* spline = keySelection.spline();
    if (!spline || !view) {
        return none;
    }
    const std::vector<PointInfo*>& keys = spline->getControlPoints();
    const bool countDiffers = keyPixels.size() != static_cast<qsizetype>(keys.size());
    if (countDiffers || spline->hasChanged() || pixelsAreOld) {
        rebuildKeyPixels();
    }
    return keys;
}
