// A curve and its XML curve file.

#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveNodeBase.h"
#include "files/CurveContent.h"
#include "files/CurveXmlNames.h"
#include "files/CurveXmlReader.h"
#include "files/CurveXmlWriter.h"
#include "files/PipeOrDevice.h"
#include "graphs/SplineCurveGraph.h"

#include <QFile>
#include <QXmlStreamReader>

using curve_editor::FileReading;
using curve_editor::Problem;
using curve_files::CurveContent;
using curve_files::CurveFileResult;

namespace {

constexpr qsizetype longestReason = 1000; // the stream's own words may name what stands in the file

} // namespace

CurveContent CurveNodeBase::content()
{
    return CurveContent::of(curveType(), spline(), expression());
}

void CurveNodeBase::saveXML(const QString& path)
{
    content().writeFile(path, curve_files::CurveFormat::xml);
}

void CurveNodeBase::writeXmlStream(QXmlStreamWriter& writer)
{
    curve_files::CurveXmlWriter(writer).writeCurve(content());
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
    if (curve_files::isPipeOrDevice(path) || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const CurveFileResult result = curve_files::readXmlDocument(
        file, [&](const CurveContent& read) { takeContent(read, parser); });
    file.close();
    if (result) {
        return {true, {}};
    }
    // The reader's own words for what is no XML have always stood there without a place.
    const bool isOwnText = result.problem == CurveFileResult::malformed;
    const QString reason = isOwnText ? result.message : result.text();
    const QString text =
        tr("Error parsing XML curve file.\nReason:\n") + reason.left(longestReason);
    return {false, {{Problem::critical, tr("Error Reading XML File"), text}}};
}

bool CurveNodeBase::LoadXmlStream(QXmlStreamReader& reader, FunctionParserBase* parser)
{
    CurveContent read;
    const bool isRead = curve_files::CurveXmlReader(reader).readCurve(read);
    if (isRead) {
        takeContent(read, parser);
    }
    return isRead;
}

PointInfo* CurveNodeBase::readControlPoint(QXmlStreamReader& reader)
{
    std::unique_ptr<PointInfo> point = curve_files::CurveXmlReader(reader).readControlPoint();
    return reader.hasError() ? nullptr : point.release();
}

bool CurveNodeBase::isEndOf(QXmlStreamReader& reader, const QString&)
{
    return reader.isEndElement();
}

void CurveNodeBase::raiseXmlError(QXmlStreamReader& reader, const QString& message)
{
    curve_files::CurveXmlReader(reader).raiseXmlError(message);
}

QString CurveNodeBase::curveTypeName(const int& type)
{
    return curve_files::curveTypeName(type);
}

QString CurveNodeBase::nodeTypeName(const int& type)
{
    return curve_files::nodeTypeName(type);
}

QString CurveNodeBase::interpolationTypeName(const int& type)
{
    return curve_files::interpolationTypeName(type);
}

int CurveNodeBase::nodeTypeFromName(const QString& name)
{
    return curve_files::nodeTypeFromName(name);
}

int CurveNodeBase::interpolationTypeFromName(const QString& name)
{
    return curve_files::interpolationTypeFromName(name);
}

/// An expression that does not parse leaves the slot empty, without a word.
void CurveNodeBase::takeContent(const CurveContent& read, FunctionParserBase* parser)
{
    ParseMessage message;
    FunctionParserBase* reader = parser ? parser : FunctionParserBase::instance();
    if (hasKeys(read.type)) {
        keysGraph->selection().clear(); // its keys are about to be freed
    }
    read.copyTo(spline(), livingSlot(), read.parseExpression(*reader, message, parserScope()));
    if (hasKeys(read.type)) {
        keysGraph->setSpline(spline());
    }
    changed = true;
}
