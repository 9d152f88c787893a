#include "commands/CommandLoadCurve.h"

#include "commands/CommandContext.h"
#include "commands/CommandSelectPoints.h"
#include "commands/EligibleCurves.h"
#include "commands/RecordExpression.h"
#include "core/FunctionParserBase.h"
#include "core/SplineBase.h"
#include "curves/CurveNodeBase.h"
#include "curves/DetachedCurve.h"
#include "curves/NodeStruct.h"
#include "curves/PipeOrDevice.h"

#include <QFile>

#include <utility>
#include <vector>

namespace curve_editor {

namespace {

/// What the file holds, read for one of the curves that are to get it.
struct LoadedCurve
{
    NodeStruct* node = nullptr; ///< not owned: the catalogue's
    std::unique_ptr<DetachedCurve> content;
};

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
    if (isPipeOrDevice(fileName) || !file.open(QIODevice::ReadOnly)) {
        return false;
    }
    file.close();
    const QStringList names = context->editingCurveNames();
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

/// The file is read once for each curve before any of them changes, up to the first failure. False
/// after one, and when nothing of the context is left after a box.
bool CommandLoadCurve::readContents()
{
    std::vector<LoadedCurve> loaded;
    Problems problems;
    bool isRead = true;
    for (NodeStruct* node : recordsOf(*context, context->editingCurves())) {
        const auto* const curve = dynamic_cast<CurveNodeBase*>(findCurveOf(*context, node));
        if (!curve || !hasPlaceForContent(node)) {
            continue;
        }
        loaded.push_back({node, std::make_unique<DetachedCurve>(*curve)});
        const FileReading reading = readFile(*loaded.back().content->curve(), fileName);
        problems += reading.problems;
        isRead = reading.isRead;
        if (!isRead) {
            break;
        }
    }
    if (!context->tell(problems) || !isRead) {
        return false;
    }
    for (LoadedCurve& curve : loaded) {
        if (hasPlaceForContent(curve.node)) { // the box of an error may have let anything happen
            const std::optional<QString> text =
                expressionTextOf(curve.content->curve()->expression());
            contents.add(curve.node, curve.content->takeSpline(), text);
        }
    }
    return true;
}

} // namespace curve_editor
