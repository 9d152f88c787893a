#pragma once

#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/SplineBase.h"
#include "curves/CurveNodeBase.h"
#include "support/BoxCatcher.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QFile>
#include <QObject>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <string>

/// A curve that is written to files and read from them, in a folder of its own.
class CurveFileTest : public QObject
{
protected:
    void openCurve()
    {
        failOnUnexpectedWarning();
        spline = std::make_unique<SplineBase>();
        curve = std::make_unique<CurveNodeBase>(nullptr, "c", "n", Qt::red, 0.0f, spline.get(),
                                                &expression, -100.0f, 100.0f, true);
        boxes = std::make_unique<BoxCatcher>();
    }

    void closeCurve()
    {
        boxes.reset();
        curve.reset();
        spline.reset();
        delete expression;
        expression = nullptr;
    }

    static PointInfo pointOf(const zk_spline::interpolationType& type, const bool& unified)
    {
        PointInfo point;
        point.time = 1.0;
        point.value = 2.0;
        point.type = type;
        point.unifiedTangents = unified;
        point.bezier = {3.0, unified ? 3.0 : 4.0};
        point.tcb = {0.1, unified ? 0.0 : 0.2, 0.3, 0.4, 0.5};
        return point;
    }

    static QByteArray curveFile(const QByteArray& children,
                                const QByteArray& attributes = "version=\"1.0\"")
    {
        return "<?xml version=\"1.0\"?>\n<!DOCTYPE qxxml-curve>\n<curve " + attributes + ">" +
               children + "</curve>";
    }

    static QByteArray splineFile(const QByteArray& points)
    {
        return curveFile("<type>spline</type><control-points>" + points + "</control-points>");
    }

    QString path(const QString& name) const { return folder.filePath(name); }

    QByteArray saved()
    {
        curve->saveXML(path("saved.xml"));
        QFile file(path("saved.xml"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    bool load(const QByteArray& text)
    {
        QFile file(path("loaded.xml"));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
            return false;
        }
        file.close();
        return curve->LoadXML(path("loaded.xml"), FunctionParserBase::instance());
    }

    void addKey(const PointInfo& point) { spline->addPointPtr(new PointInfo(point)); }

    void setExpression(const std::string& text)
    {
        delete expression;
        expression = ParsedExpression(text).tree.release();
    }

    /// Something that an unwanted change would show in.
    void fillCurve()
    {
        spline->addPoint(7.0, 8.0);
        spline->setFirstNodeType(SplineBase::loop);
        spline->setLastNodeType(SplineBase::zero);
        spline->setAddFunc(true);
        setExpression("t+77");
    }

    void verifyIsFilled()
    {
        QCOMPARE(spline->getControlPointsNumber(), 1u);
        QCOMPARE(spline->at(0)->time, 7.0);
        QCOMPARE(spline->firstNodeType(), SplineBase::loop);
        QCOMPARE(spline->lastNodeType(), SplineBase::zero);
        QVERIFY(spline->isAddFunc());
        QVERIFY(expression);
        QCOMPARE(QString::fromStdString(expression->getString()), QString("t+77"));
    }

    QTemporaryDir folder;
    std::unique_ptr<SplineBase> spline;
    FunctionFloatBase* expression = nullptr;
    std::unique_ptr<CurveNodeBase> curve;
    std::unique_ptr<BoxCatcher> boxes;
};
