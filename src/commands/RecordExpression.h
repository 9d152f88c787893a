#pragma once

#include "curves/ExpressionText.h"
#include "curves/Problem.h"

class CurveNode;

namespace curve_editor {

class CommandContext;
struct NodeStruct;

// A curve object on the canvas and its record share the host's slot: a command writes through the
// object where there is one, else straight into the slot.

/// The leaf on the canvas that shows a record's spline and slot, or null.
CurveNode* findExpressionCurve(const CommandContext& context, const NodeStruct* record);

/// The canonical text of the expression in the slot; none for an empty slot.
std::optional<QString> expressionTextOf(const NodeStruct* record);

/// The slot takes the expression, which may be null, and what it held is freed. Without a slot the
/// expression is freed. Where the curve is on the canvas and now depends on itself, the message
/// marks where, and the problem tells of it.
Problems giveExpression(const CommandContext& context, const NodeStruct* record,
                        std::unique_ptr<FunctionFloatBase> expression, ParseMessage& message);

/// The slot takes what a stored text parses into, which is null if it has become wrong, and the
/// user is told what went wrong at once. False if the context is gone by then.
[[nodiscard]] bool restoreExpression(CommandContext& context, const NodeStruct* record,
                                     const QString& text);

/// Frees the expression and empties the slot.
void emptySlot(const NodeStruct* record);

/// Whether the record's spline is added to the expression.
bool isSplineAdded(const NodeStruct* record);
void setSplineAdded(const CommandContext& context, const NodeStruct* record, const bool& add);

} // namespace curve_editor
