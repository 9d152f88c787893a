#pragma once

#include "canvas/CanvasBackground.h"
#include "canvas/CanvasFunctionBase.h"
#include "canvas/FrameGrid.h"
#include "canvas/FunctionEditor.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveNode.h"
#include "graphs/CanvasColors.h"
#include "graphs/SplineCurveGraph.h"
#include "support/GoldenPicture.h"
#include "support/Pixels.h"

#include <QPainter>
#include <QTest>

#include <map>
#include <memory>

/// A canvas of 400 by 300 pixels over 0 to 10 seconds and -1 to 1 in value, without an editor, and
/// what its hosts lend.
class PaintedCanvas
{
protected:
    struct Lent
    {
        SplineBase spline;
        FunctionFloatBase* expression = nullptr;
        ~Lent() { delete expression; }
    };

    void open()
    {
        CanvasColors::shared() = CanvasColors();
        widget = std::make_unique<FunctionEditor>(nullptr, nullptr);
        widget->setFixedSize(400, 300);
        widget->show();
        widget->viewWidth = 400;
        widget->viewHeight = 300;
        widget->minX = 0.0;
        widget->maxX = 10.0;
        widget->timeLine = -1.0;
        widget->showFrames = false;
        canvas().frameGrid()->labelFont = pictureFont();
        canvas().frameGrid()->linePen.setColor(QColor(70, 70, 70));
    }

    void close()
    {
        widget.reset();
        lent.clear();
    }

    CanvasFunctionBase& canvas() { return widget->canvas(); }

    SplineBase& addKeys(const QString& name, const QColor& color,
                        const zk_spline::interpolationType& type,
                        const QList<QPair<double, double>>& keys, const float& lowest = -1000.0f,
                        const float& highest = 1000.0f)
    {
        auto& curve = lent[name];
        curve = std::make_unique<Lent>();
        for (const auto& key : keys) {
            auto* point = new PointInfo;
            point->time = key.first;
            point->value = key.second;
            point->type = type;
            curve->spline.addPointPtr(point);
        }
        canvas().addCanvasCurve(name, color, 0.0f, &curve->spline, &curve->expression, lowest,
                                highest, true);
        return curve->spline;
    }

    void addCurve(const QString& name, const QColor& color,
                  const zk_spline::interpolationType& type, const double& middle)
    {
        addKeys(name, color, type,
                {{1.0, middle - 0.15}, {4.0, middle + 0.15}, {6.0, middle}, {9.0, middle - 0.1}});
    }

    /// A curve of four Bezier keys, which is edited.
    SplineBase& addBumps()
    {
        SplineBase& spline = addKeys("a.x", Qt::green, zk_spline::bezier,
                                     {{1.0, -0.5}, {4.0, 0.5}, {7.0, -0.25}, {9.0, 0.25}});
        edit({"a.x"});
        return spline;
    }

    void setExpression(const QString& name, const char* text)
    {
        ParseMessage message;
        delete lent[name]->expression;
        lent[name]->expression = FunctionParserBase::instance()->parseString(text, message, false);
        QVERIFY(lent[name]->expression);
    }

    void edit(const QStringList& names) { canvas().selectCurves(names); }

    void select(const QString& name, const QList<unsigned>& indexes)
    {
        QList<PointInfo*> keys;
        for (const unsigned& index : indexes) {
            keys << lent[name]->spline.at(index);
        }
        canvas().findCurve(name)->splineGraph()->selection().selectPoints(keys);
    }

    QImage painted()
    {
        QImage image(400, 300, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        canvas().paint(&painter);
        return image;
    }

    template <typename Change>
    QImage paintedAfter(const Change& change)
    {
        change();
        return painted();
    }

    std::unique_ptr<FunctionEditor> widget;
    std::map<QString, std::unique_ptr<Lent>> lent;
};
