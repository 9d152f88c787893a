#include "commands/CommandDelCurves.h"

#include "commands/CommandContext.h"
#include "commands/CommandDelExpr.h"
#include "commands/CommandResetCurves.h"
#include "commands/CommandSelectPoints.h"
#include "curves/Catalogue.h"

namespace curve_editor {

namespace {

QList<NodeStruct*> listedRecords(const Catalogue& catalogue, const QStringList& dotNames)
{
    QList<NodeStruct*> records;
    for (const QString& name : dotNames) {
        records.append(catalogue.find(name));
    }
    return records;
}

/// While it lasts the host hears nothing: one notice a step, at its end.
class Silence
{
public:
    explicit Silence(CommandContext& silenced)
        : context(silenced)
        , wasBlocked(silenced.blockReports(true))
    {}
    ~Silence() { context.blockReports(wasBlocked); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    CommandContext& context;
    bool wasBlocked;
};

} // namespace

CommandDelCurves::CommandDelCurves(CurveEditor* editor, const QList<NodeStruct*>& list)
    : CommandDelCurves(contextOf(editor), list)
{}

CommandDelCurves::CommandDelCurves(CurveEditor* editor, const QStringList& dotNames)
    : CommandDelCurves(contextOf(editor), listedRecords(contextOf(editor).catalogue(), dotNames))
{}

CommandDelCurves::CommandDelCurves(CommandContext& given, const QList<NodeStruct*>& list)
    : context(&given)
    , nodes(list)
{}

CommandDelCurves::CommandDelCurves(const CommandDelCurves& other)
    : CommandDelCurves(*other.context, other.nodes)
{}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): the list bears its own assignment
CommandDelCurves& CommandDelCurves::operator=(const CommandDelCurves& other)
{
    context = other.context;
    nodes = other.nodes;
    return *this;
}

CommandDelCurves::~CommandDelCurves() = default;

bool CommandDelCurves::execute()
{
    if (!selectCommand) {
        selectCommand = std::make_unique<CommandSelectPoints>(*context);
    }
    Parts now;
    now.delExprCommand = std::make_unique<CommandDelExpr>(*context, nodes);
    {
        const Silence silence(*context);
        now.resetCommand = std::make_unique<CommandResetCurves>(*context, nodes);
        now.resetCommand->execute();
        now.delExprCommand->execute();
    }
    parts.push_back(std::move(now));
    selectCommand->captureFinalState();
    context->report(nodes);
    return true;
}

void CommandDelCurves::undo()
{
    if (parts.empty()) {
        return;
    }
    const bool wasBlocked = context->blockReports(true);
    parts.back().resetCommand->undo();
    if (!parts.back().delExprCommand->putBack()) {
        return;
    }
    selectCommand->undo();
    context->blockReports(wasBlocked);
    context->report(nodes);
}

void CommandDelCurves::redo()
{
    if (parts.empty()) {
        return;
    }
    {
        const Silence silence(*context);
        parts.back().resetCommand->redo();
        parts.back().delExprCommand->redo();
        selectCommand->redo();
    }
    context->report(nodes);
}

ZK_String CommandDelCurves::getDescription()
{
    return "Delete Curves";
}

} // namespace curve_editor
