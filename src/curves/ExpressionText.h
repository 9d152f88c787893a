#pragma once

#include "curves/Problem.h"

#include <QString>

#include <memory>
#include <optional>

class FunctionFloatBase;
class ParseMessage;

namespace curve_editor {

/// Parses a text in the local 8-bit encoding, with the parser of the process. Returns what that
/// returned, which may be null, also where the message tells of an error.
std::unique_ptr<FunctionFloatBase> parseText(const QString& text, ParseMessage& message);

/// What a box titled "Syntax error" is to say of a text that was parsed; nothing where no place in
/// it is marked as wrong.
Problems syntaxProblems(const ParseMessage& message);

/// The expression's canonical text; none for null.
std::optional<QString> expressionTextOf(const FunctionFloatBase* expression);

} // namespace curve_editor
