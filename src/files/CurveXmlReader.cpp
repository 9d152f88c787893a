#include "files/CurveXmlReader.h"

#include "files/CurveXmlFormat.h"
#include "files/CurveXmlNames.h"

#include <QCoreApplication>
#include <QXmlStreamReader>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>

namespace curve_files {

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
        QLatin1String element;
        double* field;
    } fields[] = {
        {QLatin1String("x"), &point.time},
        {QLatin1String("y"), &point.value},
        {QLatin1String("t"), &point.tcb.tension},
        {QLatin1String("c"), &point.tcb.continuity},
        {QLatin1String("b"), &point.tcb.bias},
        {QLatin1String("ease-from"), &point.tcb.easeFrom},
        {QLatin1String("ease-to"), &point.tcb.easeTo},
        {QLatin1String("incoming"), &point.bezier.tangentLeft},
        {QLatin1String("outgoing"), &point.bezier.tangentRight},
    };
    for (const auto& each : fields) {
        // The length first: a big file asks this some million times.
        if (element.size() == each.element.size() && element == each.element) {
            return each.field;
        }
    }
    return nullptr;
}

/// None where the text is anything but one number, or one beyond the range.
std::optional<double> wholeNumber(const char* begin, const char* end)
{
    double number = 0.0;
    const std::from_chars_result result = std::from_chars(begin, end, number);
    const bool isWhole = result.ec == std::errc() && result.ptr == end;
    return isWhole ? std::optional(number) : std::nullopt;
}

/// What toDouble gives, which takes ten times as long for each digit; 0 for a number beyond the
/// range.
double longNumberOf(const QString& text)
{
    const QByteArray digits = QStringView(text).trimmed().toLatin1();
    const bool hasPlus = digits.startsWith('+') && !digits.startsWith("+-");
    return wholeNumber(digits.begin() + (hasPlus ? 1 : 0), digits.end()).value_or(0.0);
}

/// What toDouble gives, sooner for plain digits, which is what the writer writes. Both round
/// correctly, so that they agree to the bit.
double numberOf(const QString& text)
{
    constexpr qsizetype longestPlain = 40;
    constexpr qsizetype longestUsual = 1000;
    char digits[longestPlain];
    const qsizetype length = text.size();
    const bool isPlain =
        length <= longestPlain && std::all_of(text.begin(), text.end(), [](const QChar& c) {
            return (c >= u'0' && c <= u'9') || c == u'-' || c == u'.' || c == u'e';
        });
    if (isPlain) {
        std::transform(text.begin(), text.end(), digits,
                       [](const QChar& c) { return c.toLatin1(); });
        if (const std::optional<double> number = wholeNumber(digits, digits + length)) {
            return *number;
        }
    }
    return length <= longestUsual ? text.toDouble() : longNumberOf(text);
}

/// A text of the file as a message shows it: no box can lay out one of some megabytes.
QString shown(const QStringView& text)
{
    constexpr qsizetype longest = 200;
    return text.size() > longest ? text.left(longest).toString() + QLatin1String("...")
                                 : text.toString();
}

} // namespace

CurveXmlReader::CurveXmlReader(QXmlStreamReader& source)
    : stream(source)
{}

bool CurveXmlReader::readDocument(const CurveReceiver& receive)
{
    while (canGoOn()) {
        stream.readNext();
        if (stream.isStartElement() && isAtCurveOfKnownVersion()) {
            CurveContent content;
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
        raiseXmlError(CurveFileResult::otherContent,
                      tr("Bad Format: Expected <curve> instead of <%1>").arg(shown(stream.name())),
                      stream.name().toString());
        return false;
    }
    const QString current = QLatin1String(CURRENT_CURVE_VERSION);
    const QString text = stream.attributes().value(QLatin1String("version")).toString();
    const auto version = static_cast<float>(numberOf(text)); // 0 for what is no number
    const bool isDefined = version > 0.0f;
    if (isDefined && current.toFloat() >= version) {
        return true;
    }
    raiseXmlError(CurveFileResult::otherContent,
                  isDefined ? tr("Unsupported Version: %1 > %2").arg(shown(text), current)
                            : tr("Undefined Version"));
    return false;
}

bool CurveXmlReader::readCurve(CurveContent& content)
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
        raiseXmlError(CurveFileResult::unknownName, tr("Unknown curve type: <%1>").arg(QString()));
    }
    content.type = type;
    return !stream.hasError();
}

void CurveXmlReader::readCurveChild(CurveContent& content, int& type)
{
    const QStringView element = stream.name();
    if (element == QLatin1String("type")) {
        readCurveType(type);
    } else if (element == QLatin1String("expression")) {
        content.expressionLine = stream.lineNumber();
        content.expressionColumn = stream.columnNumber() + 1;
        content.expressionText = readText();
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
    const QString text = readText();
    type = curveTypeFromName(text);
    if (type < 0) {
        raiseXmlError(CurveFileResult::unknownName, tr("Unknown curve type: <%1>").arg(shown(text)),
                      text);
    }
}

void CurveXmlReader::readNodeType(int& type)
{
    const QString text = readText();
    type = nodeTypeFromName(text);
    if (type < 0) {
        raiseXmlError(CurveFileResult::unknownName, tr("Unknown node type: <%1>").arg(shown(text)),
                      text);
    }
}

void CurveXmlReader::readPoints(CurveContent& content)
{
    while (canGoOn()) {
        stream.readNext();
        if (stream.isEndElement()) {
            return;
        }
        if (stream.isStartElement() && stream.name() == QLatin1String("point")) {
            content.keys.push_back(readPoint());
        }
    }
}

std::unique_ptr<PointInfo> CurveXmlReader::readControlPoint()
{
    const PointInfo point = readPoint();
    return stream.hasError() ? nullptr : std::make_unique<PointInfo>(point);
}

PointInfo CurveXmlReader::readPoint()
{
    PointInfo point;
    while (canGoOn()) {
        stream.readNext();
        if (stream.isEndElement()) {
            break;
        }
        if (stream.isStartElement()) {
            readPointChild(point);
        }
    }
    if (point.unifiedTangents) {
        // What the writer leaves out.
        point.tcb.continuity = 0.0;
        point.bezier.tangentRight = point.bezier.tangentLeft;
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
    const QString text = readText();
    if (text.isEmpty()) {
        raiseXmlError(CurveFileResult::unknownName,
                      tr("Unknown interpolation type: <%1>").arg(text));
        return;
    }
    point.type = static_cast<zk_spline::interpolationType>(interpolationTypeFromName(text));
}

/// "inf" and "nan", which the writer writes, are what they say. Digits beyond the range count as 0,
/// as any other text that is no number does.
double CurveXmlReader::readNumber()
{
    const QString& text = readText();
    const double number = numberOf(text);
    const auto isDigit = [](const QChar& c) { return c >= u'0' && c <= u'9'; };
    const bool isBeyond = !std::isfinite(number) && std::any_of(text.begin(), text.end(), isDigit);
    return isBeyond ? 0.0 : number;
}

/// The text up to the end of the present element, read as readElementText reads it, but without
/// a new string each time. Good until the next call.
const QString& CurveXmlReader::readText()
{
    elementText.resize(0);
    for (;;) {
        switch (stream.readNext()) {
        case QXmlStreamReader::Characters:
        case QXmlStreamReader::EntityReference:
            elementText.append(stream.text());
            break;
        case QXmlStreamReader::ProcessingInstruction:
        case QXmlStreamReader::Comment:
            break;
        case QXmlStreamReader::StartElement:
            stream.raiseError(
                QCoreApplication::translate("QXmlStream", "Expected character data."));
            return elementText;
        default: // the end of the element, or an error
            return elementText;
        }
    }
}

bool CurveXmlReader::canGoOn() const
{
    return !stream.atEnd() && !stream.hasError();
}

CurveFileResult CurveXmlReader::result() const
{
    if (!stream.hasError() || failure.problem != CurveFileResult::none) {
        return failure;
    }
    return failureHere(CurveFileResult::malformed, stream.errorString());
}

CurveFileResult CurveXmlReader::failureHere(CurveFileResult::problems problem,
                                            const QString& message) const
{
    CurveFileResult here;
    here.problem = problem;
    here.message = message;
    here.line = stream.lineNumber();
    here.column = stream.columnNumber();
    return here;
}

void CurveXmlReader::raiseXmlError(const QString& message)
{
    raiseXmlError(CurveFileResult::otherContent, message);
}

/// An error that the stream holds already is the first one, and stays.
void CurveXmlReader::raiseXmlError(CurveFileResult::problems problem, const QString& message,
                                   const QString& name)
{
    if (!stream.hasError()) {
        failure = failureHere(problem, message);
        failure.name = name;
        stream.raiseError(failure.text());
    }
}

} // namespace curve_files
