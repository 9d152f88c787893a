#include "curves/DetachedCurve.h"

#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"
#include "curves/CurveNodeBase.h"

namespace curve_editor {

/// Without a canvas, which would find the curve by its name.
DetachedCurve::DetachedCurve(const CurveNodeBase& model)
    : keys(std::make_unique<SplineBase>())
    , node(std::make_unique<CurveNodeBase>(
          nullptr, model.name(), model.path(), model.curveColor(), model.curveValue(), keys.get(),
          &expression, model.minimumValue(), model.maximumValue(), model.notifiesHost()))
{
    node->readNamesAs(model);
}

DetachedCurve::~DetachedCurve()
{
    node.reset();
    delete expression;
}

CurveNodeBase* DetachedCurve::curve() const
{
    return node.get();
}

SplineBase* DetachedCurve::spline() const
{
    return keys.get();
}

std::unique_ptr<SplineBase> DetachedCurve::takeSpline()
{
    return std::move(keys);
}

} // namespace curve_editor
