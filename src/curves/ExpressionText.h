#pragma once

#include <QString>

#include <memory>
#include <optional>

class FunctionFloatBase;
class ParseMessage;
class ParserScope;

namespace curve_editor {

/// Parses a text in the local 8-bit encoding, with the parser of the process. The scope, which may
/// be null, is whose names it reads first. Returns what the parser returned, which may be null,
/// also where the message tells of an error.
std::unique_ptr<FunctionFloatBase> parseText(const QString& text, ParseMessage& message,
                                             const ParserScope* scope);

/// The expression's canonical text; none for null.
std::optional<QString> expressionTextOf(const FunctionFloatBase* expression);

} // namespace curve_editor
