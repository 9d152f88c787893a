#pragma once

#include <QList>

class ControlSplineNode;
class CurveEditor;
class CurveNode;
struct PointInfo;

namespace curve_editor {

struct NodeStruct;

/// The curves being edited that have keys, with a record each.
QList<NodeStruct*> eligibleRecords(CurveEditor* editor);

/// The selected keys of a record's curve; none when it is not on the canvas.
QList<PointInfo*> selectedPointsOf(CurveEditor* editor, const NodeStruct* record);

/// The leaf on the canvas that bears a record's name, or null.
CurveNode* findCurveOf(CurveEditor* editor, const NodeStruct* record);

/// The key selection of a record's curve; null when it is not on the canvas.
ControlSplineNode* selectionOf(CurveEditor* editor, const NodeStruct* record);

/// Makes these keys a curve's selection; those that have left its spline are passed over.
void selectList(CurveEditor* editor, const NodeStruct* record, const QList<PointInfo*>& points);

} // namespace curve_editor
