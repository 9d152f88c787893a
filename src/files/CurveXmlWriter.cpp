#include "files/CurveXmlWriter.h"

#include "core/SplineBase.h"
#include "files/CurveContent.h"
#include "files/CurveXmlFormat.h"
#include "files/CurveXmlNames.h"

#include <QString>
#include <QXmlStreamWriter>

namespace curve_files {

namespace {

/// The text of the behaviour that counts: what is none of the five counts as constant, and a file
/// that said "unknown" could not be read back.
QString behaviourName(const int& type)
{
    const bool isKnown = type >= SplineBase::zero && type <= SplineBase::followTangent;
    return nodeTypeName(isKnown ? type : SplineBase::constant);
}

} // namespace

CurveXmlWriter::CurveXmlWriter(QXmlStreamWriter& target)
    : stream(target)
{}

void CurveXmlWriter::writeDocument(const CurveContent& content)
{
    stream.setAutoFormatting(true);
    stream.writeStartDocument();
    stream.writeDTD(QStringLiteral("<!DOCTYPE qxxml-curve>"));
    writeCurve(content);
    stream.writeEndDocument();
}

void CurveXmlWriter::writeCurve(const CurveContent& content)
{
    stream.writeStartElement(QStringLiteral("curve"));
    stream.writeAttribute(QStringLiteral("version"), QLatin1String(CURRENT_CURVE_VERSION));
    writeText("type", curveTypeName(content.type));
    if (content.type != splineCurve) {
        writeText("expression", content.expressionText);
    }
    if (content.type != expressionCurve) {
        writeKeys(content);
    }
    stream.writeEndElement();
}

void CurveXmlWriter::writeKeys(const CurveContent& content)
{
    writeText("first-node-type", behaviourName(content.firstNodeType));
    writeText("last-node-type", behaviourName(content.lastNodeType));
    stream.writeStartElement(QStringLiteral("control-points"));
    for (const PointInfo& point : content.keys) {
        writePoint(point);
    }
    stream.writeEndElement();
}

void CurveXmlWriter::writePoint(const PointInfo& point)
{
    const bool isUnified = point.unifiedTangents;
    stream.writeStartElement(QStringLiteral("point"));
    writeNumber("x", point.time);
    writeNumber("y", point.value);
    writeText("type", interpolationTypeName(point.type));
    writeNumber("ease-from", point.tcb.easeFrom);
    writeNumber("ease-to", point.tcb.easeTo);
    if (point.type == zk_spline::bezier) {
        writeNumber("incoming", point.bezier.tangentLeft);
    }
    if (point.type == zk_spline::bezier && !isUnified) {
        writeNumber("outgoing", point.bezier.tangentRight);
    }
    if (point.type == zk_spline::tcb) {
        writeNumber("t", point.tcb.tension);
    }
    if (point.type == zk_spline::tcb && !isUnified) {
        writeNumber("c", point.tcb.continuity);
    }
    if (point.type == zk_spline::tcb) {
        writeNumber("b", point.tcb.bias);
    }
    if (isUnified) {
        stream.writeEmptyElement(QStringLiteral("unified-tangents"));
    }
    stream.writeEndElement();
}

void CurveXmlWriter::writeText(const char* element, const QString& text)
{
    stream.writeTextElement(QLatin1String(element), text);
}

void CurveXmlWriter::writeNumber(const char* element, const double& number)
{
    writeText(element, QString::number(number, 'g', 6));
}

} // namespace curve_files
