#include "HostCurve.h"

#include <core/EvaluationTime.h>
#include <core/FunctionFloatBase.h>

#include <algorithm>
#include <cmath>

HostCurve::HostCurve(const QString& nodeName, const QString& curveName, const QColor& curveColor,
                     float lowest, float highest)
    : node(nodeName)
    , name(curveName)
    , color(curveColor)
    , minimum(lowest)
    , maximum(highest)
{}

HostCurve::~HostCurve()
{
    delete expression;
}

QString HostCurve::dotName() const
{
    return node + QLatin1Char('.') + name;
}

double HostCurve::valueAt(double time, double fps) const
{
    double value = 0.0;
    if (!expression) {
        value = spline(time);
    } else if (spline.isAddFunc()) {
        value = spline(time, expression, fps);
    } else {
        // An expression alone reads the moment from the parser's variables.
        const EvaluationTime moment(time, fps);
        value = expression->value();
    }
    if (std::isnan(value)) {
        return static_cast<double>(minimum);
    }
    return std::clamp(value, static_cast<double>(minimum), static_cast<double>(maximum));
}
