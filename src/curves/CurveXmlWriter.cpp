#include "curves/CurveXmlWriter.h"

#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"
#include "curves/CurveType.h"
#include "curves/CurveXmlFormat.h"
#include "curves/CurveXmlNames.h"

#include <QString>
#include <QXmlStreamWriter>

namespace curve_editor {

namespace {

/// The text of the behaviour that counts: what is none of the five counts as constant, and a file
/// that said "unknown" could not be read back.
QString behaviourName(const SplineBase::nodeType& type)
{
    const bool isKnown = type >= SplineBase::zero && type <= SplineBase::followTangent;
    return nodeTypeName(isKnown ? type : SplineBase::constant);
}

} // namespace

CurveXmlWriter::CurveXmlWriter(QXmlStreamWriter& target)
    : stream(target)
{}

void CurveXmlWriter::writeDocument(const int& type, SplineBase* spline,
                                   const FunctionFloatBase* expression)
{
    stream.setAutoFormatting(true);
    stream.writeStartDocument();
    stream.writeDTD(QStringLiteral("<!DOCTYPE qxxml-curve>"));
    writeCurve(type, spline, expression);
    stream.writeEndDocument();
}

void CurveXmlWriter::writeCurve(const int& type, SplineBase* spline,
                                const FunctionFloatBase* expression)
{
    stream.writeStartElement(QStringLiteral("curve"));
    stream.writeAttribute(QStringLiteral("version"), QLatin1String(CURRENT_CURVE_VERSION));
    writeText("type", curveTypeName(type));
    if (type != splineCurve) {
        const std::string text = expression ? expression->getString() : std::string();
        writeText("expression", QString::fromLocal8Bit(text.c_str()));
    }
    if (type != expressionCurve) {
        writeSpline(spline);
    }
    stream.writeEndElement();
}

void CurveXmlWriter::writeSpline(SplineBase* spline)
{
    SplineBase none;
    SplineBase& keys = spline ? *spline : none;
    writeText("first-node-type", behaviourName(keys.firstNodeType()));
    writeText("last-node-type", behaviourName(keys.lastNodeType()));
    stream.writeStartElement(QStringLiteral("control-points"));
    for (const PointInfo* point : keys.getControlPoints()) {
        writePoint(*point);
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

} // namespace curve_editor
