// How a curve tells whether a picture of it still holds.

#include "core/ContentHash.h"
#include "core/SplineBase.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveVisit.h"
#include "files/CurveType.h"
#include "graphs/ExpressionCurveGraph.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"

namespace {

// The numbers between a key's time and its type.
static_assert(sizeof(PointInfo::BezierData) == 2 * sizeof(double), "a field is missing below");
static_assert(sizeof(PointInfo::TcbData) == 5 * sizeof(double), "a field is missing below");

void addKey(ContentHash& hash, const PointInfo* key)
{
    hash.add(key);
    hash.add(key->time);
    hash.add(key->value);
    hash.add(key->bezier.tangentLeft);
    hash.add(key->bezier.tangentRight);
    hash.add(key->tcb.tension);
    hash.add(key->tcb.continuity);
    hash.add(key->tcb.bias);
    hash.add(key->tcb.easeTo);
    hash.add(key->tcb.easeFrom);
    hash.add(static_cast<int>(key->type) * 2 + (key->unifiedTangents ? 1 : 0));
}

void addSpline(ContentHash& hash, SplineBase& spline)
{
    for (const PointInfo* key : spline.getControlPoints()) {
        addKey(hash, key);
    }
    hash.add(spline.firstNodeType());
    hash.add(spline.lastNodeType());
}

void addSelection(ContentHash& hash, const ControlSplineNode& selection)
{
    hash.add(selection.keyPart);
    hash.add(selection.heldCurrent());
    for (const PointInfo* key : selection.heldPoints()) {
        hash.add(key);
    }
}

void addView(ContentHash& hash, const ViewPort& view)
{
    for (const double& edge : {view.minX, view.maxX, view.minY, view.maxY, view.fps}) {
        hash.add(edge);
    }
    hash.add(view.viewWidth);
    hash.add(view.viewHeight);
}

void addLine(ContentHash& hash, const StrokeLine& line)
{
    for (qsizetype i = 0; i < line.pieceCount(); ++i) {
        const QPointF* const points = line.piece(i);
        for (qsizetype j = 0; j < line.pieceSize(i); ++j) {
            hash.add(points[j].x());
            hash.add(points[j].y());
        }
    }
}

} // namespace

bool CurveNodeBase::isPlain()
{
    const SplineBase* const keys = spline();
    return !changed && isActive(splineCurve) && curveType() == splineCurve && keys &&
           !keys->hasChanged() && !keysGraph->arePixelsOld();
}

std::uint64_t CurveNodeBase::refreshGraph(ViewPort* viewport)
{
    const CurveVisit visit(tree);
    const int type = curveType();
    const bool draws = type == splineCurve ? spline() != nullptr : expression() != nullptr;
    if (!viewport || !draws || !isActive(type)) {
        if (viewport && needsUpdate(viewport)) {
            postponeUpdate();
        }
        return 0;
    }
    ContentHash content;
    content.add(type);
    content.add(minimum);
    content.add(maximum);
    if (type != expressionCurve && spline()) {
        addSpline(content, *spline());
    }
    ContentHash source = content;
    addView(source, *viewport);
    // What an expression reads is anybody's: it is asked each time.
    if (type != splineCurve || keysGraph->arePixelsOld() || source.value() != sampledFrom) {
        keysGraph->markPixelsOld();
        updateGraph(viewport);
        sampledFrom = source.value();
    } else {
        clearChangedFlags();
    }
    if (hostSpline.isLost()) {
        return 0; // a refresh function has destroyed it
    }

    content.add(keysGraph->mainColor().rgba());
    content.add(keysGraph->dimColor().rgba());
    if (type == expressionCurve) {
        content.add(expressionGraph->pen.color().rgba());
        addLine(content, expressionGraph->stroke);
    } else {
        addSelection(content, keysGraph->selection());
    }
    if (type == splinePlusExpressionCurve) {
        addLine(content, keysGraph->course.limited);
        addLine(content, keysGraph->course.raw);
        addLine(content, keysGraph->course.tail);
    }
    return content.value() | 1u;
}
