#pragma once

#include <QString>

namespace curve_editor {

class Catalogue;
struct NodeStruct;

/// Whether the expression of a curve reads a variable, itself or through the curves that it reads,
/// however many lie between. Both names are in parser form. Returns the curve that is named to the
/// user: where the first curve reads one that is part of the way, the second step after the curve
/// asked for; a shorter way ends with its last step. Null when the variable is not read, or no
/// record bears the curve's name.
const NodeStruct* dependencyCulprit(const Catalogue& catalogue, const QString& variable,
                                    const QString& curve);

} // namespace curve_editor
