#pragma once

#include "curves/CurveFileTest.h"
#include "graphs/SplineCurveGraph.h"

#include <sstream>

/// A curve that is written to older curve files and read from them.
class OlderCurveFileTest : public CurveFileTest
{
protected:
    /// What the curve writes behind the lines of the colour.
    QByteArray body()
    {
        std::ostringstream stream;
        curve->saveCrv(stream);
        return QByteArray::fromStdString(stream.str());
    }

    static QByteArray whole(const QByteArray& body, const QByteArray& color = "12\n34\n56\n")
    {
        return color + body;
    }

    /// The line of a TCB key whose numbers but for the time are 0.
    static QByteArray keyLine(const QByteArray& time) { return time + " 0 0 0 0 0 0 0 0 2 0\n"; }

    void write(const QByteArray& text)
    {
        QFile file(path("loaded.crv"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(text), text.size());
    }

    void load(const QByteArray& text)
    {
        write(text);
        curve->loadCrv(path("loaded.crv"), FunctionParserBase::instance());
    }
};
