#include "curves/ExpressionProblems.h"

#include "core/ParseMessage.h"

#include <QCoreApplication>

namespace curve_editor {

namespace {

/// The piece of the message's text that its first span marks.
QString markedText(const ParseMessage& message)
{
    const auto [start, length] = message.errorSpans.front();
    const QByteArray text = QByteArray::fromStdString(message.expressionText);
    return QString::fromLocal8Bit(text.mid(start, length));
}

QString translate(const char* context, const char* text)
{
    return QCoreApplication::translate(context, text);
}

} // namespace

Problems syntaxProblems(const ParseMessage& message)
{
    if (message.errorSpans.empty()) {
        return {};
    }
    QString problem = translate("CanvasFunctionBase", "Unknown");
    if (message.errorKind == ParseMessage::unknownName) {
        problem = translate("CanvasFunctionBase", "Variable %1 not found").arg(markedText(message));
    } else if (message.errorKind == ParseMessage::openParenthesis) {
        problem = translate("CanvasFunctionBase", "Unmatched parenthesis");
    }
    return {{Problem::warning, translate("CanvasFunctionBase", "Syntax error"), problem}};
}

Problem cyclicProblem(const QString& offender)
{
    const QString text =
        translate("CurveNodeBase", "Cyclical dependency has been found for d-var %1 ");
    return {Problem::warning, translate("CurveNodeBase", "Cyclical dependency"),
            text.arg(offender)};
}

} // namespace curve_editor
