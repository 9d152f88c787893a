// What the host is told about changed curves.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "curves/CurveNode.h"
#include "curves/DottedName.h"
#include "editor/CurveEditorPrivate.h"

#include <utility>

using curve_editor::DottedName;

void CurveEditor::emitSignalCurveHasChanged(QString& nodeName, QString& curveName)
{
    const CurveNode* const curve = d->canvas().findCurve(DottedName(nodeName, curveName).text());
    if (curve && !curve->notifiesHost()) {
        return;
    }
    emit curveHasChanged(nodeName, curveName);
}

void CurveEditor::emitSignalCurvesHaveChanged()
{
    emitSignalCurvesHaveChanged(d->canvas().editingCurveNames());
}

void CurveEditor::emitSignalCurvesHaveChanged(QStringList dotNames)
{
    for (const QString& name : std::as_const(dotNames)) {
        DottedName curve = DottedName::fromText(name);
        emitSignalCurveHasChanged(curve.node, curve.curve);
    }
    refreshEditor();
}

void CurveEditor::emitSignalCurvesHaveChanged(QList<CurveEditor::NodeStruct*> records)
{
    emitSignalCurvesHaveChanged(dotNamesFromStructs(records));
}
