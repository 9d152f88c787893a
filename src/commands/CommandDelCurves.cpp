#include "commands/CommandDelCurves.h"

#include "canvas/FunctionEditor.h"
#include "commands/CommandDelExpr.h"
#include "commands/CommandResetCurves.h"
#include "commands/CommandSelectPoints.h"
#include "editor/CurveEditor.h"

#include <QPointer>
#include <QSignalBlocker>

namespace curve_editor {

CommandDelCurves::CommandDelCurves(CurveEditor* curveEditor, const QList<NodeStruct*>& list)
    : editor(curveEditor)
    , nodes(list)
{}

CommandDelCurves::CommandDelCurves(CurveEditor* curveEditor, const QStringList& dotNames)
    : CommandDelCurves(curveEditor, curveEditor->structsFromDotNames(dotNames))
{}

CommandDelCurves::CommandDelCurves(const CommandDelCurves& other)
    : CommandDelCurves(other.editor, other.nodes)
{}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): the list bears its own assignment
CommandDelCurves& CommandDelCurves::operator=(const CommandDelCurves& other)
{
    editor = other.editor;
    nodes = other.nodes;
    return *this;
}

CommandDelCurves::~CommandDelCurves() = default;

bool CommandDelCurves::execute()
{
    if (!selectCommand) {
        selectCommand = std::make_unique<CommandSelectPoints>(editor);
    }
    Parts now;
    now.delExprCommand = std::make_unique<CommandDelExpr>(editor, editor->getFunctionEditor(),
                                                          editor->commandLine, nodes);
    {
        // One notice a step, at its end.
        const QSignalBlocker blocker(editor);
        now.resetCommand = std::make_unique<CommandResetCurves>(editor, nodes);
        now.resetCommand->execute();
        now.delExprCommand->execute();
    }
    parts.push_back(std::move(now));
    selectCommand->captureFinalState();
    editor->emitSignalCurvesHaveChanged(nodes);
    return true;
}

void CommandDelCurves::undo()
{
    if (parts.empty()) {
        return;
    }
    const QPointer<CurveEditor> living(editor); // a box lets the host delete it
    const bool wasBlocked = editor->blockSignals(true);
    parts.back().resetCommand->undo();
    parts.back().delExprCommand->undo();
    if (!living) {
        return;
    }
    selectCommand->undo();
    editor->blockSignals(wasBlocked);
    editor->emitSignalCurvesHaveChanged(nodes);
}

void CommandDelCurves::redo()
{
    if (parts.empty()) {
        return;
    }
    {
        const QSignalBlocker blocker(editor);
        parts.back().resetCommand->redo();
        parts.back().delExprCommand->redo();
        selectCommand->redo();
    }
    editor->emitSignalCurvesHaveChanged(nodes);
}

ZK_String CommandDelCurves::getDescription()
{
    return "Delete Curves";
}

} // namespace curve_editor
