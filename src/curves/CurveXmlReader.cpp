#include "curves/CurveXmlReader.h"

#include "curves/CurveXmlFormat.h"
#include "curves/CurveXmlNames.h"

#include <QCoreApplication>
#include <QXmlStreamReader>

#include <cmath>

namespace curve_editor {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("CurveXmlReader", text);
}

/// Where an element of a point that holds a number puts it; null for any other element.
double* numberField(PointInfo& point, const QStringView& element)
{
    const struct
    {
        const char* element;
        double* field;
    } fields[] = {
        {"x", &point.time},
        {"y", &point.value},
        {"t", &point.tcb.tension},
        {"c", &point.tcb.continuity},
        {"b", &point.tcb.bias},
        {"ease-from", &point.tcb.easeFrom},
        {"ease-to", &point.tcb.easeTo},
        {"incoming", &point.bezier.tangentLeft},
        {"outgoing", &point.bezier.tangentRight},
    };
    for (const auto& each : fields) {
        if (element == QLatin1String(each.element)) {
            return each.field;
        }
    }
    return nullptr;
}

} // namespace

CurveXmlReader::CurveXmlReader(QXmlStreamReader& source)
    : stream(source)
{}

bool CurveXmlReader::readDocument(const Receiver& receive)
{
    while (canGoOn()) {
        stream.readNext();
        if (stream.isStartElement() && isAtCurveOfKnownVersion()) {
            CurveXmlContent content;
            if (readCurve(content)) {
                receive(content);
            }
        }
    }
    return !stream.hasError();
}

bool CurveXmlReader::isAtCurveOfKnownVersion()
{
    if (stream.name() != QLatin1String("curve")) {
        raiseXmlError(tr("Bad Format: Expected <curve> instead of <%1>").arg(stream.name()));
        return false;
    }
    const QString current = QLatin1String(CURRENT_CURVE_VERSION);
    const QString text = stream.attributes().value(QLatin1String("version")).toString();
    const float version = text.toFloat(); // 0 for what is no number
    const bool isDefined = version > 0.0f;
    if (isDefined && current.toFloat() >= version) {
        return true;
    }
    raiseXmlError(isDefined ? tr("Unsupported Version: %1 > %2").arg(text, current)
                            : tr("Undefined Version"));
    return false;
}

bool CurveXmlReader::readCurve(CurveXmlContent& content)
{
    int type = -1;
    while (canGoOn()) {
        stream.readNext();
        if (stream.isEndElement()) {
            break;
        }
        if (stream.isStartElement()) {
            readCurveChild(content, type);
        }
    }
    if (type < 0) {
        raiseXmlError(tr("Unknown curve type: <%1>").arg(QString()));
    }
    content.type = type;
    return !stream.hasError();
}

void CurveXmlReader::readCurveChild(CurveXmlContent& content, int& type)
{
    const QStringView element = stream.name();
    if (element == QLatin1String("type")) {
        readCurveType(type);
    } else if (element == QLatin1String("expression")) {
        content.expressionText = stream.readElementText();
    } else if (element == QLatin1String("first-node-type")) {
        readNodeType(content.firstNodeType);
    } else if (element == QLatin1String("last-node-type")) {
        readNodeType(content.lastNodeType);
    } else if (element == QLatin1String("control-points")) {
        readPoints(content);
    }
}

void CurveXmlReader::readCurveType(int& type)
{
    const QString text = stream.readElementText();
    type = curveTypeFromName(text);
    if (type < 0) {
        raiseXmlError(tr("Unknown curve type: <%1>").arg(text));
    }
}

void CurveXmlReader::readNodeType(int& type)
{
    const QString text = stream.readElementText();
    type = nodeTypeFromName(text);
    if (type < 0) {
        raiseXmlError(tr("Unknown node type: <%1>").arg(text));
    }
}

void CurveXmlReader::readPoints(CurveXmlContent& content)
{
    while (canGoOn()) {
        stream.readNext();
        if (stream.isEndElement()) {
            return;
        }
        if (stream.isStartElement() && stream.name() == QLatin1String("point")) {
            content.points.push_back(readControlPoint());
        }
    }
}

std::unique_ptr<PointInfo> CurveXmlReader::readControlPoint()
{
    auto point = std::make_unique<PointInfo>();
    while (canGoOn()) {
        stream.readNext();
        if (stream.isEndElement()) {
            break;
        }
        if (stream.isStartElement()) {
            readPointChild(*point);
        }
    }
    if (point->unifiedTangents) {
        // What the writer leaves out.
        point->tcb.continuity = 0.0;
        point->bezier.tangentRight = point->bezier.tangentLeft;
    }
    return point;
}

void CurveXmlReader::readPointChild(PointInfo& point)
{
    const QStringView element = stream.name();
    if (double* field = numberField(point, element)) {
        *field = readNumber();
    } else if (element == QLatin1String("type")) {
        readInterpolationType(point);
    } else if (element == QLatin1String("unified-tangents")) {
        point.unifiedTangents = true;
        stream.readNext(); // its own end element, which would end the point
    }
}

/// Only an empty text is an error: any other is taken, also where it names no interpolation.
void CurveXmlReader::readInterpolationType(PointInfo& point)
{
    const QString text = stream.readElementText();
    if (text.isEmpty()) {
        raiseXmlError(tr("Unknown interpolation type: <%1>").arg(text));
        return;
    }
    point.type = static_cast<zk_spline::interpolationType>(interpolationTypeFromName(text));
}

/// What is no finite number counts as 0.
double CurveXmlReader::readNumber()
{
    const double number = stream.readElementText().toDouble();
    return std::isfinite(number) ? number : 0.0;
}

bool CurveXmlReader::canGoOn() const
{
    return !stream.atEnd() && !stream.hasError();
}

QString CurveXmlReader::errorText() const
{
    const bool hasPlace = stream.error() == QXmlStreamReader::CustomError;
    return hasPlace ? stream.errorString() : withPlace(stream.errorString());
}

QString CurveXmlReader::withPlace(const QString& message) const
{
    return tr("%1\nat line:%2, column:%3")
        .arg(message, QString::number(stream.lineNumber()), QString::number(stream.columnNumber()));
}

/// An error that the stream holds already is the first one, and stays.
void CurveXmlReader::raiseXmlError(const QString& message)
{
    if (!stream.hasError()) {
        stream.raiseError(withPlace(message));
    }
}

} // namespace curve_editor
