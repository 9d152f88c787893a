#include "files/CurveContent.h"

#include "core/ExpressionDisposal.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "core/SplineBase.h"
#include "files/CurveXmlReader.h"
#include "files/CurveXmlWriter.h"
#include "files/DeviceStreamBuffer.h"
#include "files/FileReplacement.h"
#include "files/OlderCurveReader.h"
#include "files/PipeOrDevice.h"
#include "files/XmlInputGuard.h"

#include <QCoreApplication>
#include <QFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <ostream>
#include <utility>

namespace curve_files {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("CurveFile", text);
}

CurveFileResult failure(CurveFileResult::problems problem, const QString& message)
{
    CurveFileResult result;
    result.problem = problem;
    result.message = message;
    return result;
}

} // namespace

CurveContent CurveContent::of(const SplineBase* spline, const FunctionFloatBase* expression)
{
    return of(typeOfCurve(spline, expression), spline, expression);
}

CurveContent CurveContent::of(int type, const SplineBase* spline,
                              const FunctionFloatBase* expression)
{
    CurveContent content;
    content.type = type;
    if (type != splineCurve && expression) {
        content.setExpressionBytes(expression->getString());
    }
    if (type == expressionCurve) {
        return content;
    }
    const SplineBase none;
    const SplineBase& source = spline ? *spline : none;
    content.firstNodeType = source.firstNodeType();
    content.lastNodeType = source.lastNodeType();
    content.defaultValue = source.getDefaultValue();
    content.keys.reserve(source.keys().size());
    for (const PointInfo* key : source.keys()) {
        content.keys.push_back(*key);
    }
    return content;
}

CurveFileResult readXmlDocument(QIODevice& device, const CurveReceiver& receive)
{
    XmlInputGuard guard(device);
    QXmlStreamReader stream(&guard);
    CurveXmlReader reader(stream);
    reader.readDocument(receive);
    CurveFileResult result = reader.result();
    if (result.problem == CurveFileResult::malformed && !guard.refusal().isEmpty()) {
        result.message = guard.refusal();
    }
    return result;
}

CurveFileResult CurveContent::read(QIODevice& device)
{
    return read(device, formatOfContent(device));
}

CurveFileResult CurveContent::read(QIODevice& device, CurveFormat format)
{
    if (format == CurveFormat::older) {
        return OlderCurveReader(device).read(*this);
    }
    CurveContent found;
    CurveFileResult result =
        readXmlDocument(device, [&](const CurveContent& content) { found = content; });
    if (result) {
        *this = std::move(found);
    }
    return result;
}

CurveFileResult CurveContent::readFile(const QString& path, CurveFormat* format)
{
    if (path.isEmpty()) {
        return failure(CurveFileResult::notOpened, tr("No file name"));
    }
    QFile file(path);
    const bool isFile = !isPipeOrDevice(path);
    if (!isFile || !file.open(QIODevice::ReadOnly)) {
        const QString reason = isFile ? file.errorString() : tr("It is a pipe or a device");
        return failure(CurveFileResult::notOpened,
                       tr("Cannot open %1 for reading: %2").arg(path, reason));
    }
    const CurveFormat found = formatOfContent(file, formatOfName(path));
    if (format) {
        *format = found;
    }
    return read(file, found);
}

CurveFileResult CurveContent::write(QIODevice& device, CurveFormat format) const
{
    CurveFileResult writable = checkWritable(format);
    if (!writable) {
        return writable;
    }
    bool isWritten = true;
    if (format == CurveFormat::xml) {
        QXmlStreamWriter stream(&device);
        CurveXmlWriter(stream).writeDocument(*this);
        isWritten = !stream.hasError();
    } else {
        DeviceStreamBuffer buffer(device);
        std::ostream stream(&buffer);
        for (const int part : {red, green, blue}) {
            stream << std::to_string(part) << '\n';
        }
        writeOlderBody(stream);
        isWritten = stream.good();
    }
    return isWritten ? CurveFileResult()
                     : failure(CurveFileResult::notWritten, device.errorString());
}

CurveFileResult CurveContent::writeFile(const QString& path) const
{
    return writeFile(path, formatOfName(path));
}

CurveFileResult CurveContent::writeFile(const QString& path, CurveFormat format) const
{
    CurveFileResult writable = checkWritable(format);
    if (!writable) {
        return writable;
    }
    const QString reason = replaceFile(path, [&](QIODevice& file) { write(file, format); });
    return reason.isEmpty()
               ? CurveFileResult()
               : failure(CurveFileResult::notWritten, tr("Cannot write %1: %2").arg(path, reason));
}

std::unique_ptr<FunctionFloatBase> CurveContent::parseExpression(FunctionParserBase& parser,
                                                                 ParseMessage& message,
                                                                 const ParserScope* scope) const
{
    if (type == splineCurve) {
        return nullptr;
    }
    return std::unique_ptr<FunctionFloatBase>(
        parser.parseWithin(scope, expressionBytes(), message));
}

void CurveContent::copyKeysTo(SplineBase& spline) const
{
    spline.removeAllControlPoints();
    spline.setFirstNodeType(static_cast<SplineBase::nodeType>(firstNodeType));
    spline.setLastNodeType(static_cast<SplineBase::nodeType>(lastNodeType));
    spline.addPoints(keys);
    if (defaultValue) {
        spline.setDefaultValue(*defaultValue);
    }
}

void CurveContent::copyTo(SplineBase* spline, FunctionFloatBase** slot,
                          std::unique_ptr<FunctionFloatBase> expression) const
{
    if (slot && type != splineCurve) {
        ExpressionDisposal::take(std::exchange(*slot, expression.release()));
    }
    if (!spline) {
        return;
    }
    if (hasKeys(type)) {
        copyKeysTo(*spline);
    }
    spline->setAddFunc(isAddFunc());
}

} // namespace curve_files
