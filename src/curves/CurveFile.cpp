#include "curves/CurveFile.h"

#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveEvaluation.h"
#include "curves/CurveXmlReader.h"
#include "curves/CurveXmlWriter.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
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
    curve.expression = curve.content.parseExpression(*FunctionParserBase::instance(), message);
    if (message.errorKind != 0) {
        error = tr("The expression cannot be parsed: %1").arg(curve.content.expressionText);
    }
    return message.errorKind == 0;
}

bool writeText(QFileDevice& file, const QByteArray& text)
{
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush();
}

} // namespace

bool readCurveFile(const QString& path, SplineBase* spline, FunctionFloatBase** slot,
                   QString& error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = tr("Cannot open %1 for reading: %2").arg(path, file.errorString());
        return false;
    }
    QXmlStreamReader stream(&file);
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
    QByteArray text;
    QXmlStreamWriter stream(&text);
    CurveXmlWriter(stream).writeDocument(typeOfCurve(spline, expression), spline, expression);

    // A plain file is replaced as a whole, so that the old one outlives a failure. Anything else,
    // such as a device, must not be replaced.
    const QFileInfo target(path);
    const bool replaces = !target.exists() || target.isFile();
    QSaveFile replacement(path);
    replacement.setDirectWriteFallback(true); // where the folder takes no second file
    QFile direct(path);
    const bool isWritten =
        replaces ? writeText(replacement, text) && replacement.commit() : writeText(direct, text);
    const QString reason = replaces ? replacement.errorString() : direct.errorString();
    error = isWritten ? QString() : tr("Cannot write %1: %2").arg(path, reason);
    return isWritten;
}

} // namespace curve_editor
