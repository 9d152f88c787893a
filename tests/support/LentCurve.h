#pragma once

#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "core/SplineBase.h"

#include <QString>

/// What a host lends for one curve. It must outlive the editor, or be destroyed on purpose.
struct LentCurve
{
    SplineBase spline;
    FunctionFloatBase* expression = nullptr;

    ~LentCurve() { delete expression; }

    PointInfo* addKey(const double& time, const double& value,
                      const zk_spline::interpolationType& type = zk_spline::linear)
    {
        auto* point = new PointInfo;
        point->time = time;
        point->value = value;
        point->type = type;
        return spline.addPointPtr(point);
    }

    void setExpression(const char* text)
    {
        ParseMessage message;
        delete expression;
        expression = FunctionParserBase::instance()->parseString(text, message, false);
    }
};

/// The canonical text of the expression that a host's slot holds; "none" for an empty one.
inline QString expressionOf(const LentCurve& curve)
{
    return curve.expression ? QString::fromLocal8Bit(curve.expression->getString().c_str())
                            : QStringLiteral("none");
}
