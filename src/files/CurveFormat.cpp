#include "files/CurveFormat.h"

#include <QIODevice>

namespace curve_files {

namespace {

constexpr qint64 longestLook = 4096;

bool isBlank(char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

} // namespace

CurveFormat formatOfName(const QString& name)
{
    const bool isOlder = name.endsWith(QLatin1String(".crv"), Qt::CaseInsensitive);
    return isOlder ? CurveFormat::older : CurveFormat::xml;
}

CurveFormat formatOfContent(QIODevice& device, CurveFormat otherwise)
{
    QByteArray start = device.peek(longestLook);
    if (start.startsWith("\xef\xbb\xbf")) {
        start.remove(0, 3);
    }
    for (const char byte : qAsConst(start)) {
        // The marks of two-byte encodings, and a half of a character of one, stand in XML alone.
        if (byte == '<' || byte == '\0' || byte == '\xff' || byte == '\xfe') {
            return CurveFormat::xml;
        }
        if (!isBlank(byte)) {
            // No older file begins with anything but a number; a text that does may be meant as
            // either.
            const bool isNumber = (byte >= '0' && byte <= '9') || byte == '-' || byte == '+';
            return isNumber ? CurveFormat::older : otherwise;
        }
    }
    return otherwise;
}

QString fileNameOfCurve(const QString& dotName)
{
    QString name = dotName;
    return name.replace(QLatin1Char('/'), QLatin1Char('_'));
}

} // namespace curve_files
