// What of menus and toolbars is enabled, checked and shown.

#include "core/SplineBase.h"
#include "editor/EditorActions.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include <utility>

namespace curve_editor {

namespace {

struct BehaviourRow
{
    SplineBase::nodeType behaviour;
    int first; ///< the action of the first end, or -1
    int last;
};

const BehaviourRow behaviourRows[] = {
    {SplineBase::zero, firstZeroAction, lastZeroAction},
    {SplineBase::constant, firstConstantAction, lastConstantAction},
    {SplineBase::loop, -1, lastLoopAction},
    {SplineBase::loopOffset, -1, lastLoopOffsetAction},
    {SplineBase::followTangent, -1, lastFollowTangentAction},
};

} // namespace

void EditorActions::setEnabled(const EditorItem& item, bool enabled)
{
    switch (item.kind) {
    case plainItem:
        plainActions[item.value]->setEnabled(enabled);
        break;
    case menuItem:
        menus[item.value]->setEnabled(enabled);
        break;
    case buttonActionItem:
        toolButtonActions[item.value]->setEnabled(enabled);
        break;
    case buttonItem:
        toolButtons[item.value]->setEnabled(enabled);
        break;
    default:
        break;
    }
}

void EditorActions::enableFor(const EditingState& state)
{
    for (const EnabledRow& row : enabledRows()) {
        setEnabled(row.item, state.meets(row.condition));
    }
}

void EditorActions::disableForEmptySet()
{
    for (const EditorItem& item : emptySetItems()) {
        setEnabled(item, false);
    }
}

void EditorActions::showToolbars()
{
    for (int which = 0; which < topToolBarList.size() && which < topToolBarActions.size();
         ++which) {
        topToolBarList[which]->setVisible(topToolBarActions[which]->isChecked());
    }
}

void EditorActions::toggleBehaviours(const SplineBase& spline)
{
    for (const BehaviourRow& row : behaviourRows) {
        if (row.first >= 0 && spline.firstNodeType() == row.behaviour) {
            plainActions[row.first]->toggle();
        }
        if (spline.lastNodeType() == row.behaviour) {
            plainActions[row.last]->toggle();
        }
    }
}

void EditorActions::checkButton(CurveEditor::topToolButtons which, bool checked)
{
    toolButtons[which]->setCheckable(true);
    toolButtons[which]->setChecked(checked);
}

void EditorActions::releaseButton(CurveEditor::topToolButtons which)
{
    toolButtons[which]->setChecked(false);
}

} // namespace curve_editor
