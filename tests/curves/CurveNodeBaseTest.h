#pragma once

#include "core/FunctionFloatBase.h"
#include "core/ParseMessage.h"
#include "core/SplineBase.h"
#include "curves/CurveNodeBase.h"
#include "graphs/ViewPort.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QImage>
#include <QObject>
#include <QPainter>

#include <memory>
#include <string>

/// A curve with what a host lends it, and a view to draw it in.
class CurveNodeBaseTest : public QObject
{
protected:
    void openCurve()
    {
        failOnUnexpectedWarning();
        spline = std::make_unique<SplineBase>();
        curve = makeCurve(-10.0f, 10.0f);
        view = ViewPort();
        view.viewWidth = 100;
        view.viewHeight = 100;
        view.minX = 0.0;
        view.maxX = 10.0;
        view.minY = -20.0;
        view.maxY = 20.0;
        view.canvasDirty = false;
    }

    void closeCurve()
    {
        curve.reset();
        spline.reset();
        delete expression;
        expression = nullptr;
    }

    std::unique_ptr<CurveNodeBase> makeCurve(const float& minimum, const float& maximum)
    {
        return std::make_unique<CurveNodeBase>(nullptr, "c", "n", QColor(200, 100, 51), 4.0f,
                                               spline.get(), &expression, minimum, maximum, true);
    }

    void setExpression(const std::string& text)
    {
        ParseMessage message;
        curve->setExpression(ParsedExpression(text).tree.release(), message);
    }

    /// How many pixels of a black picture the curve paints over.
    int paintedPixels()
    {
        QImage image(view.viewWidth, view.viewHeight, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        curve->draw(&view, &painter);
        painter.end();
        int painted = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                painted += image.pixelColor(x, y) != QColor(Qt::black) ? 1 : 0;
            }
        }
        return painted;
    }

    std::unique_ptr<SplineBase> spline;
    FunctionFloatBase* expression = nullptr;
    std::unique_ptr<CurveNodeBase> curve;
    ViewPort view;
};
