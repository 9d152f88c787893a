#pragma once

#include "commands/CommandAddFunc.h"
#include "commands/CommandDelExpr.h"
#include "commands/CommandParseExpr.h"
#include "support/EditorFixture.h"
#include "support/ExpressionLine.h"

#include <QString>

/// The commands of expressions on curves by name, run by the editor's manager.
class ExpressionSteps
{
public:
    explicit ExpressionSteps(EditorFixture& target)
        : editor(target.editor)
    {}

    QList<curve_editor::NodeStruct*> records(const QStringList& names) const
    {
        return editor.structsFromDotNames(names);
    }

    /// The text goes into the expression line first.
    bool parse(const QString& text, const QStringList& names)
    {
        editor.commandLine->setText(text);
        return run(new curve_editor::CommandParseExpr(&editor, editor.getFunctionEditor(),
                                                      editor.commandLine, records(names)));
    }

    bool removeRecords(const QList<curve_editor::NodeStruct*>& nodes)
    {
        return run(new curve_editor::CommandDelExpr(&editor, editor.getFunctionEditor(),
                                                    editor.commandLine, nodes));
    }

    bool remove(const QStringList& names) { return removeRecords(records(names)); }

    bool addFunc() { return run(new curve_editor::CommandAddFunc(&editor)); }

    void undo() { editor.getCmdManager()->undo(); }
    void redo() { editor.getCmdManager()->redo(); }

private:
    bool run(curve_editor::CurveCommand* command)
    {
        return editor.getCmdManager()->doCommand(command);
    }

    CurveEditor& editor;
};
