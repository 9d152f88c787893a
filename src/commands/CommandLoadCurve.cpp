#include "commands/CommandLoadCurve.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/CommandSelectPoints.h"
#include "commands/EligibleCurves.h"
#include "commands/RecordExpression.h"
#include "core/FunctionParserBase.h"
#include "core/SplineBase.h"
#include "curves/CurveNodeBase.h"
#include "curves/DetachedCurve.h"
#include "curves/NodeStruct.h"
#include "curves/PipeOrDevice.h"
#include "editor/CurveEditor.h"

#include <QFile>
#include <QPointer>

namespace curve_editor {

namespace {

/// The older format has no failure.
bool readFile(CurveNodeBase* curve, const QString& fileName)
{
    FunctionParserBase* const parser = FunctionParserBase::instance();
    if (fileName.endsWith(QLatin1String(".xml"), Qt::CaseInsensitive)) {
        return curve->LoadXML(fileName, parser);
    }
    curve->loadCrv(fileName, parser);
    return true;
}

/// Neither spline nor slot when the host has destroyed them.
bool hasPlaceForContent(const NodeStruct* node)
{
    return node->livingSpline() || node->livingSlot();
}

} // namespace

CommandLoadCurve::CommandLoadCurve(CurveEditor* curveEditor, const QString& file)
    : editor(curveEditor)
    , fileName(file)
    , contents(curveEditor)
{}

CommandLoadCurve::~CommandLoadCurve() = default;

bool CommandLoadCurve::execute()
{
    QFile file(fileName);
    if (isPipeOrDevice(fileName) || !file.open(QIODevice::ReadOnly)) {
        return false;
    }
    file.close();
    const QStringList names = editor->getFunctionEditor()->canvas().editingCurveNames();
    if (names.isEmpty()) {
        return false;
    }
    selectCommand = std::make_unique<CommandSelectPoints>(editor);
    if (!readContents()) {
        return false;
    }
    if (!contents.restoreCurveContent(CurveContents::newCurves)) {
        return true;
    }
    selectCommand->captureFinalState();
    editor->selectNodes(names);
    editor->emitSignalCurvesHaveChanged(contents.nodes());
    return true;
}

void CommandLoadCurve::undo()
{
    if (!contents.restoreRecordContent(CurveContents::oldCurves)) {
        return;
    }
    selectCommand->undo();
    editor->refreshCommandLine();
    editor->emitSignalCurvesHaveChanged(contents.nodes());
}

void CommandLoadCurve::redo()
{
    if (!contents.restoreRecordContent(CurveContents::newCurves)) {
        return;
    }
    selectCommand->redo();
    editor->refreshCommandLine();
    editor->emitSignalCurvesHaveChanged(contents.nodes());
}

ZK_String CommandLoadCurve::getDescription()
{
    return "Load Curve";
}

/// The file is read once for each curve before any of them changes. False as well when a host
/// deleted the editor, and with it the records, while the box of an error was open.
bool CommandLoadCurve::readContents()
{
    const QPointer<CurveEditor> living(editor);
    CanvasFunctionBase& canvas = editor->getFunctionEditor()->canvas();
    const QList<NodeStruct*> nodes = recordsOf(editor, canvas.editingCurves());
    for (NodeStruct* node : nodes) {
        const auto* const curve = dynamic_cast<CurveNodeBase*>(findCurveOf(editor, node));
        if (!curve || !hasPlaceForContent(node)) {
            continue;
        }
        DetachedCurve loaded(*curve);
        if (!readFile(loaded.curve(), fileName) || !living) {
            return false;
        }
        // The box of an error may have let anything happen.
        if (hasPlaceForContent(node)) {
            const std::optional<QString> text = expressionTextOf(loaded.curve()->expression());
            contents.copyCurveForUndo(node, loaded.takeSpline(), text);
        }
    }
    return true;
}

} // namespace curve_editor
