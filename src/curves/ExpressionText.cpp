#include "curves/ExpressionText.h"

#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"

namespace curve_editor {

std::unique_ptr<FunctionFloatBase> parseText(const QString& text, ParseMessage& message,
                                             const ParserScope* scope)
{
    FunctionParserBase* const parser = FunctionParserBase::instance();
    const std::string local = text.toLocal8Bit().toStdString();
    return std::unique_ptr<FunctionFloatBase>(parser->parseWithin(scope, local, message));
}

std::optional<QString> expressionTextOf(const FunctionFloatBase* expression)
{
    if (!expression) {
        return std::nullopt;
    }
    return QString::fromLocal8Bit(expression->getString().c_str());
}

} // namespace curve_editor
