#include "curves/CurveNodeBase.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasVisit.h"
#include "canvas/ExpressionCurveGraph.h"
#include "canvas/SplineCurveGraph.h"
#include "canvas/ViewPort.h"
#include "core/EvaluationTime.h"
#include "core/ExpressionDisposal.h"
#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"
#include "curves/CurveEvaluation.h"
#include "curves/CurveType.h"
#include "curves/DottedName.h"
#include "curves/EvaluatedCurve.h"

#include <QPointer>

#include <utility>

using curve_editor::DottedName;

namespace {

const double framesPerSecondWithoutView = 10.0;

QColor midColor(const QColor& a, const QColor& b)
{
    return QColor((a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2);
}

} // namespace

CurveNodeBase::CurveNodeBase(CanvasFunctionBase* owner, const QString& name, const QString& path,
                             const QColor& color, float curveValue, SplineBase* spline,
                             FunctionFloatBase** expressionSlot, float minimumValue,
                             float maximumValue, bool notifiesHost)
    : CurveNode(owner, name, path, leaf)
    , hostSpline(spline)
    , slot(expressionSlot)
    , keysGraph(std::make_unique<SplineCurveGraph>(spline, owner ? owner->viewPort() : nullptr))
    , expressionGraph(std::make_unique<ExpressionCurveGraph>())
    , storedCurveValue(curveValue)
    , minimum(minimumValue)
    , maximum(maximumValue)
{
    reportsToHost = notifiesHost;
    CurveNodeBase::setColor(color, Qt::black);
    changed = true;
}

CurveNodeBase::~CurveNodeBase() = default;

bool CurveNodeBase::isCurve() const
{
    return true;
}

void CurveNodeBase::setColor(const QColor& color, const QColor& background)
{
    const QColor mid = midColor(color, background);
    keysGraph->setColors(color, mid);
    expressionGraph->setColors(color, mid);
}

QList<CurveNode*>* CurveNodeBase::children()
{
    return nullptr;
}

void CurveNodeBase::addChild(CurveNode*) {}

int CurveNodeBase::curveType()
{
    return typeOfCurve(spline(), expression());
}

QList<SplineBase*> CurveNodeBase::splines()
{
    SplineBase* keys = spline();
    return keys ? QList<SplineBase*>{keys} : QList<SplineBase*>();
}

SplineBase* CurveNodeBase::spline()
{
    return hostSpline.get();
}

FunctionFloatBase* CurveNodeBase::expression()
{
    FunctionFloatBase** living = livingSlot();
    return living ? *living : nullptr;
}

FunctionFloatBase** CurveNodeBase::expressionSlot()
{
    return livingSlot();
}

FunctionFloatBase** CurveNodeBase::livingSlot() const
{
    return hostSpline.isLost() ? nullptr : slot;
}

CurveNode* CurveNodeBase::findNode(const QString& dotName)
{
    return isNamed(dotName) ? this : nullptr;
}

void CurveNodeBase::setActive(bool active)
{
    keysGraph->isActive = active;
    expressionGraph->isActive = active;
}

void CurveNodeBase::removeExpression(const bool& remove)
{
    changed = true;
    if (!remove) {
        return;
    }
    if (FunctionFloatBase** living = livingSlot()) {
        ExpressionDisposal::take(std::exchange(*living, nullptr));
    }
    setAddFunc(false);
}

void CurveNodeBase::setDotName(const QString& dotName)
{
    const QString lastElement = dotName.section(QLatin1Char('.'), -1);
    // A negative length, of a name without a point, keeps the whole name.
    setNames(lastElement, dotName.left(dotName.length() - lastElement.length() - 1));
}

void CurveNodeBase::setPath(const QString& path)
{
    setNames(ownName, path);
}

void CurveNodeBase::removeNode(const QString&) {}

SplineCurveGraph* CurveNodeBase::splineGraph()
{
    return keysGraph.get();
}

void CurveNodeBase::markChanged()
{
    changed = true;
}

void CurveNodeBase::setAddFunc(const bool& add)
{
    if (SplineBase* keys = spline()) {
        keys->setAddFunc(add);
    }
}

void CurveNodeBase::reset()
{
    removeExpression(true);
    keysGraph->selection().clear();
    if (SplineBase* keys = spline()) {
        keys->reset();
    }
    DottedName name = DottedName::fromText(dotName());
    const QPointer<CurveNodeBase> self(this);
    emit curveHasChanged(name.node, name.curve);
    if (self) {
        changed = true;
    }
}

double CurveNodeBase::evaluate(const double& time)
{
    const CanvasVisit visit(canvas); // a refresh function may take this curve off the canvas
    const int type = curveType();
    SplineBase* keys = spline();
    if (type == splineCurve) {
        return clampToLimits(keys ? (*keys)(time) : 0.0, minimum, maximum);
    }
    if (type != expressionCurve && type != splinePlusExpressionCurve) {
        return 0.0;
    }
    const double fps = framesPerSecond();
    EvaluationTime moment(time, fps);
    FunctionFloatBase* function = expression();
    if (type == expressionCurve && !function) {
        moment.keep();
        return 0.0;
    }
    const curve_editor::EvaluatedCurve asked(keys, function);
    // A refresh function may delete the editor, and this curve with it.
    const float lowest = minimum;
    const float highest = maximum;
    if (type == expressionCurve) {
        return clampToLimits(function->value(), lowest, highest);
    }
    return clampToLimits(keys ? (*keys)(time, function, fps) : 0.0, lowest, highest);
}

double CurveNodeBase::framesPerSecond() const
{
    const ViewPort* view = canvas ? canvas->viewPort() : nullptr;
    return view ? view->fps : framesPerSecondWithoutView;
}

QColor CurveNodeBase::curveColor() const
{
    return keysGraph->mainColor();
}

float CurveNodeBase::curveValue() const
{
    return storedCurveValue;
}

float CurveNodeBase::minimumValue() const
{
    return minimum;
}

float CurveNodeBase::maximumValue() const
{
    return maximum;
}

bool CurveNodeBase::hasChanged() const
{
    return changed;
}

void CurveNodeBase::splineChanged()
{
    changed = true;
}

void CurveNodeBase::createNodeAtCursor()
{
    if (canvas) {
        canvas->createNodeAtCursor(this);
    }
}
