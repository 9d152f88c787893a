#include "curves/ExpressionText.h"

#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"

#include <QCoreApplication>

namespace curve_editor {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("CanvasFunctionBase", text);
}

/// The piece of the message's text that its first span marks.
QString markedText(const ParseMessage& message)
{
    const auto [start, length] = message.errorSpans.front();
    const QByteArray text = QByteArray::fromStdString(message.expressionText);
    return QString::fromLocal8Bit(text.mid(start, length));
}

} // namespace

std::unique_ptr<FunctionFloatBase> parseText(const QString& text, ParseMessage& message,
                                             const ParserScope* scope)
{
    FunctionParserBase* const parser = FunctionParserBase::instance();
    const std::string local = text.toLocal8Bit().toStdString();
    return std::unique_ptr<FunctionFloatBase>(parser->parseWithin(scope, local, message));
}

Problems syntaxProblems(const ParseMessage& message)
{
    if (message.errorSpans.empty()) {
        return {};
    }
    QString problem = tr("Unknown");
    if (message.errorKind == ParseMessage::unknownName) {
        problem = tr("Variable %1 not found").arg(markedText(message));
    } else if (message.errorKind == ParseMessage::openParenthesis) {
        problem = tr("Unmatched parenthesis");
    }
    return {{Problem::warning, tr("Syntax error"), problem}};
}

std::optional<QString> expressionTextOf(const FunctionFloatBase* expression)
{
    if (!expression) {
        return std::nullopt;
    }
    return QString::fromLocal8Bit(expression->getString().c_str());
}

} // namespace curve_editor
