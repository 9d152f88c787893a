#include "curves/CurveFile.h"

#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveType.h"
#include "curves/CurveXmlReader.h"
#include "curves/CurveXmlWriter.h"
#include "curves/FileReplacement.h"
#include "curves/PipeOrDevice.h"
#include "curves/XmlInputGuard.h"

#include <QCoreApplication>
#include <QFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace curve_editor {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("CurveFile", text);
}

struct ReadCurve
{
    CurveXmlContent content;
    std::unique_ptr<FunctionFloatBase> expression;
};

/// An empty text stands for no expression, which is what a curve without one is saved as.
bool parseExpression(ReadCurve& curve, QString& error)
{
    if (curve.content.expressionText.isEmpty()) {
        return true;
    }
    ParseMessage message;
    curve.expression =
        curve.content.parseExpression(*FunctionParserBase::instance(), nullptr, message);
    if (message.errorKind != ParseMessage::noError) {
        constexpr qsizetype longest = 200; // no box can lay out a text of some megabytes
        error = tr("The expression cannot be parsed: %1")
                    .arg(curve.content.expressionText.left(longest));
    }
    return message.errorKind == ParseMessage::noError;
}

} // namespace

bool readCurveFile(const QString& path, SplineBase* spline, FunctionFloatBase** slot,
                   QString& error)
{
    QFile file(path);
    const bool isFile = !isPipeOrDevice(path);
    if (!isFile || !file.open(QIODevice::ReadOnly)) {
        const QString reason = isFile ? file.errorString() : tr("It is a pipe or a device");
        error = tr("Cannot open %1 for reading: %2").arg(path, reason);
        return false;
    }
    XmlInputGuard guard(file);
    QXmlStreamReader stream(&guard);
    CurveXmlReader reader(stream);
    std::vector<ReadCurve> curves;
    const bool isRead = reader.readDocument([&](CurveXmlContent& content) {
        curves.push_back({std::move(content), nullptr});
    });
    if (!isRead) {
        error = reader.errorText();
        return false;
    }
    for (ReadCurve& curve : curves) {
        if (!parseExpression(curve, error)) {
            return false;
        }
    }
    for (ReadCurve& curve : curves) {
        curve.content.moveInto(spline, slot, std::move(curve.expression));
    }
    error.clear();
    return true;
}

bool writeCurveFile(const QString& path, SplineBase* spline, const FunctionFloatBase* expression,
                    QString& error)
{
    const QString reason = replaceFile(path, [&](QIODevice& file) {
        QXmlStreamWriter stream(&file);
        CurveXmlWriter(stream).writeDocument(typeOfCurve(spline, expression), spline, expression);
    });
    error = reason.isEmpty() ? QString() : tr("Cannot write %1: %2").arg(path, reason);
    return reason.isEmpty();
}

} // namespace curve_editor
