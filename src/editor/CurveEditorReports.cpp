// What the host is told about changed curves.

#include "editor/CurveEditor.h"

#include "canvas/FunctionEditor.h"
#include "curves/CurveNode.h"

#include <utility>

void CurveEditor::emitSignalCurveHasChanged(QString& nodeName, QString& curveName)
{
    const CurveNode* const curve =
        functionEditor->canvas().findCurve(QStringLiteral("%1.%2").arg(nodeName, curveName));
    if (curve && !curve->notifiesHost()) {
        return;
    }
    emit curveHasChanged(nodeName, curveName);
}

void CurveEditor::emitSignalCurvesHaveChanged()
{
    emitSignalCurvesHaveChanged(functionEditor->canvas().editingCurveNames());
}

void CurveEditor::emitSignalCurvesHaveChanged(QStringList dotNames)
{
    for (const QString& name : std::as_const(dotNames)) {
        QString nodeName = name.section(QLatin1Char('.'), 0, 0);
        QString curveName = name.section(QLatin1Char('.'), 1);
        emitSignalCurveHasChanged(nodeName, curveName);
    }
    refreshEditor();
}

void CurveEditor::emitSignalCurvesHaveChanged(QList<CurveEditor::NodeStruct*> records)
{
    emitSignalCurvesHaveChanged(dotNamesFromStructs(records));
}
