// What is enabled, checked and shown after each change.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "editor/CurveEditorPrivate.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"
#include "widgets/CurveKeysDialog.h"

#include <QAction>

using namespace curve_editor;

namespace {

bool anySelectedKeys(const CanvasFunctionBase& canvas)
{
    for (const SplineCurveGraph* const container : canvas.keyContainers()) {
        if (container && container->selection().hasSelection()) {
            return true;
        }
    }
    return false;
}

EditingState stateOf(const CanvasFunctionBase& canvas)
{
    const int type = canvas.editingType();
    return {type, canvas.editingCurves().size() > 1,
            type != expressionCurve && anySelectedKeys(canvas)};
}

void showSnapping(EditorActions& actions, const CanvasFunctionBase& canvas)
{
    actions.buttonAction(CurveEditor::horizontalSnapButton)->setChecked(canvas.horizontalSnap);
    actions.buttonAction(CurveEditor::verticalSnapButton)->setChecked(canvas.verticalSnap);
    actions.checkButton(CurveEditor::snapToGridButton,
                        canvas.horizontalSnap && canvas.verticalSnap);
    actions.checkButton(CurveEditor::showToolTipsButton, canvas.toolTipsOn);
}

void enableBehaviourFields(CurveKeysDialog* keys, bool on)
{
    keys->nodeFirst->setEnabled(on);
    keys->nodeLast->setEnabled(on);
}

void disableForEmptySet(CurveEditorPrivate& parts, const CurveEditor& form)
{
    parts.actions.disableForEmptySet();
    form.deleteCurve->setEnabled(false);
    form.addToSpline->setEnabled(false);
    form.commandLine->setEnabled(false);
    enableBehaviourFields(parts.keysDialog(), false);
    parts.keysDialog()->enableKeyFields(false);
}

void refreshFileAndExpression(EditorActions& actions, const CurveEditor& form,
                              const EditingState& state)
{
    actions.setEnabled({menuItem, fileMenu}, true);
    actions.setEnabled({menuItem, keysMenu}, true);
    actions.setEnabled({menuItem, insertMenu}, true);
    form.commandLine->setEnabled(true);

    form.deleteCurve->setEnabled(state.type != splineCurve);
    form.addToSpline->setEnabled(state.type != splineCurve && state.type != mixedCurves);
    form.addToSpline->setChecked(state.type == splinePlusExpressionCurve);

    actions.setEnabled({plainItem, loadCurveAction}, true);
    actions.setEnabled({plainItem, saveCurveAction}, true);
    actions.plainAction(saveCurveAction)
        ->setText(CurveEditor::tr("Save curve%1...")
                      .arg(state.hasSeveralCurves ? QString("s") : QString()));
}

/// The combo boxes show the truth; a first behaviour that they do not offer leaves theirs blank.
void showBehaviours(EditorActions& actions, CurveKeysDialog* keys, const SplineBase* spline)
{
    if (spline) {
        actions.toggleBehaviours(*spline);
        keys->nodeFirst->setCurrentIndex(spline->firstNodeType());
        keys->nodeLast->setCurrentIndex(spline->lastNodeType());
    }
}

} // namespace

void CurveEditor::refreshEditor()
{
    d->actions.showToolbars();
    CanvasFunctionBase& canvas = d->canvas();
    showSnapping(d->actions, canvas);
    if (canvas.editingCurves().isEmpty()) {
        disableForEmptySet(*d, *this);
        return;
    }
    const EditingState state = stateOf(canvas);
    refreshFileAndExpression(d->actions, *this, state);
    d->actions.enableFor(state);
    enableBehaviourFields(d->keysDialog(), state.type != expressionCurve);
    if (hasKeys(state.type)) {
        showBehaviours(d->actions, d->keysDialog(), canvas.firstSpline());
    } else {
        d->keysDialog()->enableKeyFields(false);
    }
    d->functionEditor->canvasDirty = true;
    d->functionEditor->refreshKeysDialog();
    canvas.updateCanvas();
}
