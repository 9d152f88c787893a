#include "files/OlderCurveReader.h"

#include "core/SplineBase.h"

#include <QCoreApplication>
#include <QIODevice>

#include <locale>
#include <string>

namespace curve_files {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("CurveFile", text);
}

QIODevice& behindMark(QIODevice& device)
{
    constexpr char mark[] = "\xef\xbb\xbf";
    if (device.peek(sizeof mark - 1) == QByteArray(mark)) {
        device.read(sizeof mark - 1);
    }
    return device;
}

/// What is no type gives -1.
int typeOf(char digit)
{
    return digit >= '0' && digit <= '2' ? digit - '0' : -1;
}

} // namespace

OlderCurveReader::OlderCurveReader(QIODevice& device)
    : buffer(behindMark(device))
    , stream(&buffer)
{
    stream.imbue(std::locale::classic());
}

CurveFileResult OlderCurveReader::read(CurveContent& content)
{
    CurveContent found;
    if (!readColorAndType(found)) {
        return result;
    }
    if (found.type != splineCurve) {
        std::string word;
        stream >> word;
        const StreamPlace place = buffer.place();
        found.setExpressionBytes(word);
        found.expressionLine = place.line;
        found.expressionColumn = place.column - static_cast<qint64>(word.size());
    }
    if (!hasKeys(found.type) || readKeys(found)) {
        content = std::move(found);
        return result;
    }
    content.type = found.type;
    content.expressionText = found.expressionText;
    content.foreignBytes = found.foreignBytes;
    content.expressionLine = found.expressionLine;
    content.expressionColumn = found.expressionColumn;
    return result;
}

bool OlderCurveReader::readColorAndType(CurveContent& content)
{
    char type = '\0';
    stream >> content.red >> content.green >> content.blue >> type;
    content.type = typeOf(type);
    if (content.type >= 0) {
        return true;
    }
    result = failureHere(CurveFileResult::unknownName, tr("Curve type not valid"));
    result.name = stream ? QString(QChar::fromLatin1(type)) : QString();
    return false;
}

bool OlderCurveReader::readKeys(CurveContent& content)
{
    const StreamPlace begin = buffer.place();
    SplineBase spline;
    const SplineReadResult read = SplineBase::load(&spline, stream);
    if (!read) {
        result = failureHere(CurveFileResult::badKeys, QString::fromStdString(read.problem));
        const qint64 column = static_cast<qint64>(read.column);
        result.line = begin.line + static_cast<qint64>(read.line) - 1;
        result.column = read.line == 1 ? begin.column + column - 1 : column;
        return false;
    }
    content.firstNodeType = spline.firstNodeType();
    content.lastNodeType = spline.lastNodeType();
    content.defaultValue = spline.getDefaultValue();
    content.keys.reserve(spline.keys().size());
    for (const PointInfo* key : spline.keys()) {
        content.keys.push_back(*key);
    }
    return true;
}

CurveFileResult OlderCurveReader::failureHere(CurveFileResult::problems problem,
                                              const QString& message) const
{
    CurveFileResult failure;
    failure.problem = problem;
    failure.message = message;
    failure.line = buffer.place().line;
    failure.column = buffer.place().column;
    return failure;
}

} // namespace curve_files
