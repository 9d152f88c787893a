// The expression line, and what is done to the expressions of the curves being edited.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/CommandContext.h"
#include "commands/CommandDelExpr.h"
#include "commands/CommandParseExpr.h"
#include "commands/RecordKeys.h"
#include "core/ExpressionDisposal.h"
#include "curves/CurveNode.h"
#include "curves/DependencyWalk.h"
#include "curves/DottedName.h"
#include "editor/CurveEditorPrivate.h"
#include "widgets/CurveKeysDialog.h"

#include <QPointer>

#include <utility>

using namespace curve_editor;

void CurveEditor::executeCommand()
{
    // The toolkit counts a text that the program set as an edit. Parsing it when the user merely
    // passes through would make a step of undo of nothing, or take "..." for an expression. And a
    // line that is disabled because the last curve has gone is left, too.
    const bool hasBeenTyped = commandLine->isModified() && d->canvas().isEditing();
    if (commandLine->isBeingLeft() && !hasBeenTyped) {
        return;
    }
    // From here on it counts as taken: the box of an error takes the focus away from the line.
    commandLine->setModified(false);
    if (commandLine->text().trimmed().isEmpty()) {
        deleteCurveClicked();
        return;
    }
    const QPointer<CurveEditor> self(this);
    d->manager.endGestures();
    d->manager.doCommand(
        new CommandParseExpr(this, d->functionEditor, commandLine,
                             recordsOf(contextOf(this), d->canvas().editingCurves())));
    if (self) { // the box of an error runs an event loop
        refreshEditor();
    }
}

void CurveEditor::deleteCurveClicked()
{
    d->manager.endGestures();
    d->manager.doCommand(
        new CommandDelExpr(this, d->functionEditor, commandLine,
                           recordsOf(contextOf(this), d->canvas().editingCurves())));
    update();
}

void CurveEditor::switchAddFuncToSpline()
{
    d->canvas().switchAddFuncToSpline();
    refreshEditor();
}

void CurveEditor::refreshCommandLine()
{
    commandLine->setText(d->canvas().commandLineText());
}

void CurveEditor::setExpression()
{
    d->keysDialog()->enableKeyFields(false);
    d->canvas().markExpressionsChanged();
    d->functionEditor->update();
    update();
}

void CurveEditor::setTcb()
{
    const QList<CurveNode*> curves = d->canvas().editingCurves();
    for (CurveNode* const curve : curves) {
        curve->removeExpression(false);
    }
    d->canvas().markExpressionsChanged();
    d->functionEditor->update();
    update();
}

void CurveEditor::errorClosed()
{
    commandLine->insertUnderscore();
}

void CurveEditor::deleteExpression(const QString& node, const QString& curve,
                                   FunctionFloatBase** slot)
{
    if (!isVisible()) {
        if (slot) {
            ExpressionDisposal::take(std::exchange(*slot, nullptr));
        }
        return;
    }
    const DottedName name(node, curve);
    if (CurveNode* const found = d->canvas().findLeaf(name.text())) {
        found->removeExpression(true);
    }
    refreshCommandLine();
}

bool CurveEditor::checkDependencies(const QString& variable, const QString& curve, QString& culprit)
{
    const NodeStruct* const found = dependencyCulprit(d->catalogue, variable, curve);
    if (found) {
        culprit = found->dotName;
    }
    return found != nullptr;
}
