#pragma once

#include <QString>

#include <optional>

class CurveEditor;
class CurveNode;
class FunctionFloatBase;
class ParseMessage;

namespace curve_editor {

struct NodeStruct;

// A curve object on the canvas and its record share the host's slot: a command writes through the
// object where there is one, else straight into the slot.

/// The leaf on the canvas that shows a record's spline and slot, or null.
CurveNode* findExpressionCurve(CurveEditor* editor, const NodeStruct* record);

/// The expression's canonical text; none for null or an empty slot.
std::optional<QString> expressionTextOf(const FunctionFloatBase* expression);
std::optional<QString> expressionTextOf(const NodeStruct* record);

/// The slot takes the expression, which may be null, and what it held is freed. Without a slot the
/// expression is freed. The message tells of a cycle, where the curve is on the canvas. The box of
/// a cycle runs an event loop, in which the host may delete the editor.
void giveExpression(CurveEditor* editor, const NodeStruct* record, FunctionFloatBase* expression,
                    ParseMessage& message);

/// The slot takes what a stored text parses into, which is null if it has become wrong. False if
/// the host has deleted the editor while a box was open.
bool restoreExpression(CurveEditor* editor, const NodeStruct* record, const QString& text);

/// Frees the expression and empties the slot.
void emptySlot(const NodeStruct* record);

/// Whether the record's spline is added to the expression.
bool isSplineAdded(const NodeStruct* record);
void setSplineAdded(CurveEditor* editor, const NodeStruct* record, const bool& add);

} // namespace curve_editor
