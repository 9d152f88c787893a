#include "curves/CurveNodeBase.h"

#include "core/CurveLimits.h"
#include "core/EvaluationTime.h"
#include "core/ExpressionDisposal.h"
#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"
#include "curves/CurveHost.h"
#include "curves/CurveTree.h"
#include "curves/CurveVisit.h"
#include "curves/DottedName.h"
#include "curves/NodeStruct.h"
#include "files/CurveType.h"
#include "graphs/EvaluatedCurve.h"
#include "graphs/ExpressionCurveGraph.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"

#include <QPointer>

#include <utility>

using curve_editor::DottedName;
using curve_editor::NodeStruct;

namespace {

const QLatin1Char point('.');
const double framesPerSecondWithoutView = 10.0;

QColor midColor(const QColor& a, const QColor& b)
{
    return QColor((a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2);
}

/// A dotted name without its last element; empty when it has but one.
QString pathOf(const QString& dotName)
{
    const auto end = dotName.lastIndexOf(point);
    return end < 0 ? QString() : dotName.left(end);
}

/// Null without a tree, or where nobody shows its curves.
ViewPort* viewOf(const CurveTree* tree)
{
    const CurveHost* const host = tree ? tree->host() : nullptr;
    return host ? host->view() : nullptr;
}

} // namespace

CurveNodeBase::CurveNodeBase(CanvasFunctionBase* canvas, const QString& name, const QString& path,
                             const QColor& color, float curveValue, SplineBase* spline,
                             FunctionFloatBase** expressionSlot, float minimumValue,
                             float maximumValue, bool notifiesHost)
    : CurveNodeBase(treeOf(canvas), name, path,
                    NodeStruct::lent(path, name, color, curveValue, spline, expressionSlot,
                                     minimumValue, maximumValue, notifiesHost))
{}

/// The path is the whole name without its last element, also where the curve lies higher than
/// that: it has to report the name that it was asked for.
CurveNodeBase::CurveNodeBase(CurveTree& owner, const NodeStruct& record)
    : CurveNodeBase(&owner, record.dotName.section(point, -1), pathOf(record.dotName), record)
{}

CurveNodeBase::CurveNodeBase(CurveTree* owner, const QString& name, const QString& path,
                             const NodeStruct& content)
    : CurveNode(owner, name, path, leaf)
    , hostSpline(content.livingSpline())
    , slot(content.livingSlot())
    , keysGraph(std::make_unique<SplineCurveGraph>(hostSpline.get(), viewOf(owner)))
    , expressionGraph(std::make_unique<ExpressionCurveGraph>())
    , storedCurveValue(content.curveValue)
    , minimum(content.minValue)
    , maximum(content.maxValue)
{
    reportsToHost = content.notifyHost;
    CurveNodeBase::setColor(content.color, Qt::black);
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
    const CurveVisit visit(tree); // a refresh function may take this curve off the canvas
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
    const ViewPort* const view = viewOf(tree);
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
    if (CurveHost* const host = tree ? tree->host() : nullptr) {
        host->createNodeAtCursor(this);
    }
}
