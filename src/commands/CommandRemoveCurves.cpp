#include "commands/CommandRemoveCurves.h"

#include "canvas/FunctionEditor.h"
#include "commands/EligibleCurves.h"
#include "curves/CurveNode.h"
#include "editor/CurveEditor.h"

namespace curve_editor {

namespace {

/// The object is put back only where it still fits: the host may have given the name to another
/// spline or slot in the meantime, or another name to the object.
bool fits(CurveNode* curve, const NodeStruct* record)
{
    return showsRecord(curve, record) && curve->expressionSlot() == record->livingSlot() &&
           curve->dotName() == record->dotName;
}

} // namespace

CommandRemoveCurves::CommandRemoveCurves(CurveEditor* curveEditor, const QStringList& dotNames)
    : editor(curveEditor)
    , previousSelection(curveEditor->getSelection())
    , names(dotNames)
{}

bool CommandRemoveCurves::execute()
{
    const QStringList leaving = names;
    for (const QString& name : leaving) {
        curves.append(editor->curveFromDotName(name));
        editor->removeCurveFromEditing(name);
    }
    editor->emitSignalCurvesHaveChanged();
    return true;
}

void CommandRemoveCurves::undo()
{
    const QStringList returning = names;
    const qsizetype count = qMin(returning.size(), curves.size());
    for (qsizetype i = 0; i < count; ++i) {
        NodeStruct* const record = editor->searchAllNodeList(returning[i]);
        if (record) {
            editor->setCurveEditableOn(record, fits(curves[i], record) ? curves[i] : nullptr);
        }
    }
    editor->selectNodes(previousSelection);
    editor->update();
    editor->emitSignalCurvesHaveChanged();
}

/// Appends to the curves again; what undo puts back stays what the first execute took out.
void CommandRemoveCurves::redo()
{
    execute();
}

ZK_String CommandRemoveCurves::getDescription()
{
    return "Remove Curves from Curve Editor";
}

} // namespace curve_editor
