#pragma once

#include "support/EditorFixture.h"

#include "curves/CurveNodeBase.h"

#include <QColor>
#include <QFile>
#include <QTemporaryDir>

#include <fstream>

/// Curve files of both formats, good and bad, in a folder that goes with this object.
class CurveFiles
{
public:
    CurveFiles()
    {
        writeCurve("keys", nullptr, false);
        writeCurve("expression", "sin(t)*3", false);
        writeCurve("sum", "t+1", true);
        write("broken.xml", "<curve><keys");
        write("no-type.crv", "0\n0\n0\n7\n");
        write("empty.crv", "");
        paths << folder.filePath("missing.crv");
    }

    QStringList paths;

private:
    void writeCurve(const QString& name, const char* expression, const bool& isSum)
    {
        LentCurve lent;
        lent.addKey(1.0, 2.0, zk_spline::tcb);
        lent.addKey(2.5, -3.0);
        lent.addKey(4.0, 0.1);
        if (expression) {
            lent.setExpression(expression);
        }
        lent.spline.setAddFunc(isSum);
        lent.spline.setLastNodeType(SplineBase::loopOffset);
        CurveNodeBase curve(nullptr, name, QString(), Qt::red, 0.0f, &lent.spline, &lent.expression,
                            -100.0f, 100.0f, true);

        paths << folder.filePath(name + ".xml");
        curve.saveXML(paths.last());
        paths << folder.filePath(name + ".crv");
        std::ofstream stream(paths.last().toLocal8Bit().constData());
        stream << "255\n0\n0\n";
        curve.saveCrv(stream);
    }

    void write(const QString& name, const char* content)
    {
        paths << folder.filePath(name);
        QFile file(paths.last());
        file.open(QIODevice::WriteOnly);
        file.write(content);
    }

    QTemporaryDir folder;
};
