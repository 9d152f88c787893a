#pragma once

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "core/FunctionFloatBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveNodeBase.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QObject>

#include <map>
#include <memory>

/// A canvas without an editor, and hosts that lend splines and expression slots.
class CanvasTest : public QObject
{
protected:
    struct Host
    {
        SplineBase spline;
        FunctionFloatBase* expression = nullptr;
        ~Host() { delete expression; }
    };

    void openCanvas()
    {
        failOnUnexpectedWarning();
        widget = std::make_unique<FunctionEditor>(nullptr, nullptr);
        canvas = &widget->canvas();
    }

    void closeCanvas()
    {
        widget.reset();
        hosts.clear();
    }

    /// A curve of the host of that name, who is made where there is none yet.
    CurveNode* add(const QString& name)
    {
        auto& host = hosts[name];
        if (!host) {
            host = std::make_unique<Host>();
        }
        return canvas->addCanvasCurve(name, Qt::red, 0.0f, &host->spline, &host->expression, -10.0f,
                                      10.0f, true);
    }

    CurveNode* addOfType(const QString& name, const int& type, const QString& text = "1")
    {
        CurveNode* curve = add(name);
        ParseMessage message;
        if (type != splineCurve) {
            curve->setExpression(ParsedExpression(text.toStdString()).tree.release(), message);
        }
        curve->setAddFunc(type == splinePlusExpressionCurve);
        return curve;
    }

    std::map<QString, std::unique_ptr<Host>> hosts;
    std::unique_ptr<FunctionEditor> widget;
    CanvasFunctionBase* canvas = nullptr;
};
