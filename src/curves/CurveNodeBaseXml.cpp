// A curve and its XML curve file.

#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveXmlNames.h"
#include "curves/CurveXmlReader.h"
#include "curves/CurveXmlWriter.h"
#include "curves/FileReplacement.h"
#include "curves/PipeOrDevice.h"
#include "curves/XmlInputGuard.h"
#include "graphs/SplineCurveGraph.h"

#include <QFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

using curve_editor::CurveXmlContent;
using curve_editor::CurveXmlReader;
using curve_editor::CurveXmlWriter;
using curve_editor::FileReading;
using curve_editor::Problem;

namespace {

constexpr qsizetype longestReason = 1000; // the stream's own words may name what stands in the file

} // namespace

void CurveNodeBase::saveXML(const QString& path)
{
    curve_editor::replaceFile(path, [this](QIODevice& file) {
        QXmlStreamWriter stream(&file);
        CurveXmlWriter(stream).writeDocument(curveType(), spline(), expression());
    });
}

void CurveNodeBase::writeXmlStream(QXmlStreamWriter& writer)
{
    CurveXmlWriter(writer).writeCurve(curveType(), spline(), expression());
}

bool CurveNodeBase::LoadXML(const QString& path, FunctionParserBase* parser)
{
    const FileReading reading = readXml(path, parser);
    showBoxes(reading.problems);
    return reading.isRead;
}

FileReading CurveNodeBase::readXml(const QString& path, FunctionParserBase* parser)
{
    QFile file(path);
    if (curve_editor::isPipeOrDevice(path) || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    curve_editor::XmlInputGuard guard(file);
    QXmlStreamReader stream(&guard);
    const bool isRead = CurveXmlReader(stream).readDocument(
        [&](CurveXmlContent& content) { takeContent(content, parser); });
    if (isRead) {
        return {true, {}};
    }
    const QString text =
        tr("Error parsing XML curve file.\nReason:\n") + stream.errorString().left(longestReason);
    return {false, {{Problem::critical, tr("Error Reading XML File"), text}}};
}

bool CurveNodeBase::LoadXmlStream(QXmlStreamReader& reader, FunctionParserBase* parser)
{
    CurveXmlContent content;
    const bool isRead = CurveXmlReader(reader).readCurve(content);
    if (isRead) {
        takeContent(content, parser);
    }
    return isRead;
}

PointInfo* CurveNodeBase::readControlPoint(QXmlStreamReader& reader)
{
    std::unique_ptr<PointInfo> point = CurveXmlReader(reader).readControlPoint();
    return reader.hasError() ? nullptr : point.release();
}

bool CurveNodeBase::isEndOf(QXmlStreamReader& reader, const QString&)
{
    return reader.isEndElement();
}

void CurveNodeBase::raiseXmlError(QXmlStreamReader& reader, const QString& message)
{
    CurveXmlReader(reader).raiseXmlError(message);
}

QString CurveNodeBase::curveTypeName(const int& type)
{
    return curve_editor::curveTypeName(type);
}

QString CurveNodeBase::nodeTypeName(const int& type)
{
    return curve_editor::nodeTypeName(type);
}

QString CurveNodeBase::interpolationTypeName(const int& type)
{
    return curve_editor::interpolationTypeName(type);
}

int CurveNodeBase::nodeTypeFromName(const QString& name)
{
    return curve_editor::nodeTypeFromName(name);
}

int CurveNodeBase::interpolationTypeFromName(const QString& name)
{
    return curve_editor::interpolationTypeFromName(name);
}

/// An expression that does not parse leaves the slot empty, without a word.
void CurveNodeBase::takeContent(CurveXmlContent& content, FunctionParserBase* parser)
{
    ParseMessage message;
    FunctionParserBase* reader = parser ? parser : FunctionParserBase::instance();
    if (hasKeys(content.type)) {
        keysGraph->selection().clear(); // its keys are about to be freed
    }
    content.moveInto(spline(), livingSlot(),
                     content.parseExpression(*reader, parserScope(), message));
    if (hasKeys(content.type)) {
        keysGraph->setSpline(spline());
    }
    changed = true;
}
