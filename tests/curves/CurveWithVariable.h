#pragma once

#include "core/EvaluationTime.h"
#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"
#include "curves/CurveVariable.h"
#include "curves/NodeStruct.h"
#include "support/ParsedExpression.h"

#include <QString>
#include <QTest>

#include <cmath>
#include <memory>
#include <string>

/// A record with its variable, and what a host would lend for it.
class CurveWithVariable
{
public:
    explicit CurveWithVariable(const QString& name)
    {
        record.mainNodeName = "n";
        record.curveName = name;
        record.dotName = "n." + name;
        record.function = &expression;
        record.minValue = -1e30f;
        record.maxValue = 1e30f;
        record.setSpline(&spline);
        variable = std::make_unique<curve_editor::CurveVariable>(&record);
    }
    ~CurveWithVariable()
    {
        variable.reset();
        delete expression;
    }
    CurveWithVariable(const CurveWithVariable&) = delete;
    CurveWithVariable& operator=(const CurveWithVariable&) = delete;

    void setExpression(const std::string& text)
    {
        ParsedExpression parsed(text);
        QCOMPARE(parsed.message.errorKind, 0);
        delete expression;
        expression = parsed.tree.release();
    }

    SplineBase spline;
    FunctionFloatBase* expression = nullptr;
    curve_editor::NodeStruct record;
    std::unique_ptr<curve_editor::CurveVariable> variable;
};

/// What an expression gives at a time in seconds; not a number where it does not parse.
inline double valueOf(const std::string& text, const double& time, const double& fps = 10.0)
{
    const ParsedExpression parsed(text);
    const EvaluationTime moment(time, fps);
    return parsed.tree ? parsed.tree->value() : std::nan("");
}
