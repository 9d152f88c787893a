#pragma once

#include "commands/CommandAddFunc.h"
#include "commands/CommandDelExpr.h"
#include "commands/CommandParseExpr.h"
#include "support/DocumentFixture.h"

#include <QString>

/// The commands of expressions on curves by name.
class ExpressionSteps
{
public:
    explicit ExpressionSteps(DocumentFixture& target)
        : fixture(target)
    {}

    /// The text goes into the expression line first.
    bool parse(const QString& text, const QStringList& names)
    {
        fixture.lineText = text;
        return run(new curve_editor::CommandParseExpr(fixture, nullptr, fixture.recordsOf(names)));
    }

    bool removeRecords(const QList<curve_editor::NodeStruct*>& nodes)
    {
        return run(new curve_editor::CommandDelExpr(fixture, nodes));
    }

    bool remove(const QStringList& names) { return removeRecords(fixture.recordsOf(names)); }

    bool addFunc() { return run(new curve_editor::CommandAddFunc(fixture)); }

    void undo() { fixture.manager.undo(); }
    void redo() { fixture.manager.redo(); }

private:
    bool run(curve_editor::CurveCommand* command) { return fixture.manager.doCommand(command); }

    DocumentFixture& fixture;
};
