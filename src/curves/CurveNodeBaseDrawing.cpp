// How a curve keeps its pixels up to date and draws them.

#include "core/EvaluationTime.h"
#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"
#include "core/Truncate.h"
#include "curves/CurveHost.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveTree.h"
#include "curves/CurveVisit.h"
#include "files/CurveType.h"
#include "graphs/EvaluatedCurve.h"
#include "graphs/ExpressionCurveGraph.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"

#include <QPainter>

#include <cmath>

namespace {

const int expressionSamples = 5000;
const int decimalsWithoutHost = 2;

/// Holds a value between two limits; what is no finite number counts as the upper one.
double drawnValue(const double& value, const double& minimum, const double& maximum)
{
    if (value < minimum) {
        return minimum;
    }
    return value > maximum || !std::isfinite(value) ? maximum : value;
}

/// The row of a value, held to what lies just outside of the canvas.
int drawnRow(const ViewPort& viewport, const double& value)
{
    const double height = viewport.viewHeight;
    const double row = (viewport.maxY - value) * (height / (viewport.maxY - viewport.minY));
    if (row < -1.0) {
        return -1;
    }
    return row > height ? viewport.viewHeight : truncateToPixel(row);
}

} // namespace

bool CurveNodeBase::isActive(const int& type) const
{
    return type == expressionCurve ? expressionGraph->isActive : keysGraph->isActive;
}

bool CurveNodeBase::needsUpdate(const ViewPort* viewport) const
{
    const SplineBase* keys = hostSpline.get();
    return changed || (keys && keys->hasChanged()) || viewport->canvasDirty;
}

void CurveNodeBase::clearChangedFlags()
{
    changed = false;
    if (SplineBase* keys = spline()) {
        keys->setChanged(false);
    }
}

/// Of a curve that is not drawn: its pixels are old until it is.
void CurveNodeBase::postponeUpdate()
{
    keysGraph->markPixelsOld();
    expressionGraph->pixelsAreOld = true;
    clearChangedFlags();
}

void CurveNodeBase::dropPixels()
{
    keysGraph->dropPixels();
    expressionGraph->dropPixels();
}

void CurveNodeBase::updateGraph(ViewPort* viewport)
{
    if (!viewport) {
        return;
    }
    const CurveVisit visit(tree);
    const int type = curveType();
    const bool pixelsAreOld =
        type == expressionCurve ? expressionGraph->pixelsAreOld : keysGraph->arePixelsOld();
    if (!pixelsAreOld && !needsUpdate(viewport)) {
        return;
    }
    sampledFrom = 0;
    // Beforehand: a refresh function may change the curve while it is sampled.
    clearChangedFlags();
    try {
        sample(*viewport, type);
    } catch (...) {
        changed = true;
        throw;
    }
}

void CurveNodeBase::sample(ViewPort& viewport, const int& type)
{
    if (type == splineCurve) {
        keysGraph->rebuildSpline(&viewport, minimum, maximum);
    } else if (type == splinePlusExpressionCurve) {
        keysGraph->rebuildSplineWithExpression(&viewport, minimum, maximum, expression());
    } else if (type == expressionCurve && expression()) {
        sampleExpression(viewport);
    }
}

void CurveNodeBase::sampleExpression(const ViewPort& viewport)
{
    const FunctionFloatBase* function = expression();
    const double lowest = static_cast<double>(minimum);
    const double highest = static_cast<double>(maximum);
    const double step = (viewport.maxX - viewport.minX) / expressionSamples;
    QPolygon points(expressionSamples);
    StrokeLine& stroke = expressionGraph->stroke;
    stroke.clear(viewport.viewHeight);
    const double scaleY = viewport.viewHeight / (viewport.maxY - viewport.minY);
    EvaluationTime moment;
    for (int i = 0; i < expressionSamples; ++i) {
        moment.set(i * step + viewport.minX, viewport.fps);
        const curve_editor::EvaluatedCurve asked(spline(), function);
        const double value = drawnValue(function->value(), lowest, highest);
        if (hostSpline.isLost()) {
            return; // a refresh function has destroyed it
        }
        const double column = static_cast<double>(i) * viewport.viewWidth * 0.0002;
        points.setPoint(i, truncateToPixel(column), drawnRow(viewport, value));
        stroke.add(column, (viewport.maxY - value) * scaleY);
    }
    expressionGraph->setPolyline(points);
}

void CurveNodeBase::draw(ViewPort* viewport, QPainter* painter)
{
    if (!viewport || !painter) {
        return;
    }
    const CurveVisit visit(tree);
    const int type = curveType();
    if (isActive(type)) {
        updateGraph(viewport);
    } else if (needsUpdate(viewport)) {
        postponeUpdate();
    }
    paintGraph(viewport, painter);
}

void CurveNodeBase::paintGraph(ViewPort* viewport, QPainter* painter)
{
    const int type = curveType();
    const QPainter::RenderHints hints = painter->renderHints();
    painter->setRenderHint(QPainter::Antialiasing);
    if (type == expressionCurve && expression() && expressionGraph->isActive) {
        expressionGraph->draw(painter);
    }
    if (type == splineCurve || (type == splinePlusExpressionCurve && expression())) {
        drawKeys(viewport, painter);
    }
    // Adds hints and takes none away: antialiasing stays on.
    painter->setRenderHints(hints, true);
}

void CurveNodeBase::drawKeys(ViewPort* viewport, QPainter* painter)
{
    if (!spline() || keysGraph->keyPixels.isEmpty() || !keysGraph->isActive) {
        return;
    }
    keysGraph->drawCurve(painter);
    keysGraph->drawKeys(painter);
    keysGraph->drawTangents(painter);
    keysGraph->drawSelectedKeys(painter);
    if (viewport->showLabels) {
        keysGraph->drawLabels(painter, viewport->fps, viewport->showFrames, labelDecimals());
    }
}

int CurveNodeBase::labelDecimals() const
{
    const CurveHost* const host = tree ? tree->host() : nullptr;
    return host ? host->labelDecimals() : decimalsWithoutHost;
}
