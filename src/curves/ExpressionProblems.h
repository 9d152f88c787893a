#pragma once

#include "curves/Problem.h"

class ParseMessage;

namespace curve_editor {

/// What a box titled "Syntax error" is to say of a text that was parsed; nothing where no place in
/// it is marked as wrong.
Problems syntaxProblems(const ParseMessage& message);

/// What a box is to say of a curve that has come to depend on itself through the curve of that
/// dotted name.
Problem cyclicProblem(const QString& offender);

} // namespace curve_editor
