#pragma once

#include "core/KeyRef.h"

#include <QList>
#include <QSet>
#include <QString>

class ControlSplineNode;
class CurveNode;
class SplineBase;

namespace curve_editor {

class CommandContext;
struct NodeStruct;

// Who owns a key. Every key of a host's spline has exactly one owner that frees it: that spline,
// or one command that took it out and has not put it back.
//
// - A key passes to a command by SplineBase::remove of a key that findIndex has just found, and
//   back by SplineBase::addPointPtr; or with all keys of its spline, whose content a command takes
//   over or exchanges for another. The command's state says which it is.
// - A command frees the keys that it owns when it is destroyed. It is then the newest command
//   that can name them (a redo stack is given up), or the oldest (an undo stack drops its end),
//   and then what is newer was made while the keys were already out of their spline.
// - A key is who it is, not where it lies: a command notes it with its serial (KeyRef). Before it
//   reads or writes a key that it does not own, the spline must still hold that very key
//   (SplineBase::holds); otherwise somebody else has taken it or freed it, and the command leaves
//   it alone, whatever key may lie at its address by now.
// - A command puts a key back under the serial that it had, so that it is the same key again for
//   all that name it, and stands among keys of its time where it stood.
// - A spline that its host has destroyed has freed the keys it held. Commands forget those, and
//   free what they own themselves.

/// The name by which a record's curve is known.
QString dotNameOf(const NodeStruct& record);

/// The record that bears a curve's name, or null. One that the list search passes over, because the
/// name of an earlier record is a prefix of its own, is still found by its parser form.
NodeStruct* recordOf(const CommandContext& context, const CurveNode& curve);

/// The curves being edited that have keys, with a record each.
QList<NodeStruct*> eligibleRecords(const CommandContext& context);

/// The records of curves on the canvas, in order. A curve without one is left out.
QList<NodeStruct*> recordsOf(const CommandContext& context, const QList<CurveNode*>& curves);

/// The selected keys of a record's curve, all of them keys of its spline; none when the curve is
/// not on the canvas.
QList<KeyRef> selectedKeysOf(const CommandContext& context, const NodeStruct* record);

/// The leaf on the canvas that bears a record's name and shows its spline, or null.
CurveNode* findCurveOf(const CommandContext& context, const NodeStruct* record);

/// The key selection of a record's curve; null when it is not on the canvas.
ControlSplineNode* selectionOf(const CommandContext& context, const NodeStruct* record);

/// Makes these keys a curve's selection; those that have left its spline are passed over.
void selectList(const CommandContext& context, const NodeStruct* record, const QList<KeyRef>& keys);

/// Whether a curve object shows what a record speaks of.
bool showsRecord(CurveNode* curve, const NodeStruct* record);

/// Those of the keys that are in the spline, which may be null.
QList<KeyRef> membersOf(const SplineBase* spline, const QList<KeyRef>& keys);

/// Takes all keys that these splines do not hold out of the selections of the curves that show
/// them, also of those that are not being edited: to be called once, when keys have left. It looks
/// at every curve on the canvas.
void dropDepartedKeys(const CommandContext& context, const QSet<const SplineBase*>& splines);

} // namespace curve_editor
