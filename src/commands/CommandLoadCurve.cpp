#include "commands/CommandLoadCurve.h"

#include "commands/CommandContext.h"
#include "commands/CommandSelectPoints.h"
#include "commands/RecordExpression.h"
#include "commands/RecordKeys.h"
#include "core/FunctionParserBase.h"
#include "core/SplineBase.h"
#include "curves/CurveNodeBase.h"
#include "curves/DetachedCurve.h"
#include "curves/EditingSet.h"
#include "curves/NodeStruct.h"
#include "files/PipeOrDevice.h"

#include <QFile>

namespace curve_editor {

namespace {

/// The older format has no failure.
FileReading readFile(CurveNodeBase& curve, const QString& fileName)
{
    FunctionParserBase* const parser = FunctionParserBase::instance();
    if (fileName.endsWith(QLatin1String(".xml"), Qt::CaseInsensitive)) {
        return curve.readXml(fileName, parser);
    }
    return {true, curve.readCrv(fileName, parser)};
}

/// Neither spline nor slot when the host has destroyed them.
bool hasPlaceForContent(const NodeStruct* node)
{
    return node->livingSpline() || node->livingSlot();
}

} // namespace

CommandLoadCurve::CommandLoadCurve(CurveEditor* editor, const QString& file)
    : CommandLoadCurve(contextOf(editor), file)
{}

CommandLoadCurve::CommandLoadCurve(CommandContext& given, const QString& file)
    : context(&given)
    , fileName(file)
    , contents(given)
{}

CommandLoadCurve::~CommandLoadCurve() = default;

bool CommandLoadCurve::execute()
{
    QFile file(fileName);
    if (curve_files::isPipeOrDevice(fileName) || !file.open(QIODevice::ReadOnly)) {
        return false;
    }
    file.close();
    const QStringList names = context->editingSet().names();
    if (names.isEmpty()) {
        return false;
    }
    selectCommand = std::make_unique<CommandSelectPoints>(*context);
    if (!readContents()) {
        return false;
    }
    if (!contents.restoreCurveContent(CurveContents::newCurves)) {
        return true;
    }
    selectCommand->captureFinalState();
    context->select(names);
    context->report(contents.nodes());
    return true;
}

void CommandLoadCurve::undo()
{
    if (!contents.restoreRecordContent(CurveContents::oldCurves)) {
        return;
    }
    selectCommand->undo();
    context->refreshExpressionLine();
    context->report(contents.nodes());
}

void CommandLoadCurve::redo()
{
    if (!contents.restoreRecordContent(CurveContents::newCurves)) {
        return;
    }
    selectCommand->redo();
    context->refreshExpressionLine();
    context->report(contents.nodes());
}

ZK_String CommandLoadCurve::getDescription()
{
    return "Load Curve";
}

/// The file is read once for each curve before any of them changes. False after a failure, and when
/// nothing of the context is left after its box.
bool CommandLoadCurve::readContents()
{
    const QList<NodeStruct*> nodes = recordsOf(*context, context->editingSet().curves());
    for (NodeStruct* node : nodes) {
        const auto* const curve = dynamic_cast<CurveNodeBase*>(findCurveOf(*context, node));
        if (!curve || !hasPlaceForContent(node)) {
            continue;
        }
        DetachedCurve loaded(*curve);
        const FileReading reading = readFile(*loaded.curve(), fileName);
        if (!context->tell(reading.problems) || !reading.isRead) {
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
