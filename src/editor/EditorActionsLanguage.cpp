// The texts of menus and buttons, and the keys that go with them.

#include "editor/EditorActions.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QToolButton>

#include <utility>

namespace curve_editor {

namespace {

/// What a button takes anew from the action that it shows, at each change of that action.
struct ButtonState
{
    bool checkable = false;
    bool checked = false;
    bool enabled = false;
};

ButtonState stateOf(const QToolButton* button)
{
    return button ? ButtonState{button->isCheckable(), button->isChecked(), button->isEnabled()}
                  : ButtonState();
}

void restoreState(QToolButton* button, const ButtonState& state)
{
    if (button) {
        button->setCheckable(state.checkable);
        button->setChecked(state.checked);
        button->setEnabled(state.enabled);
    }
}

} // namespace

void EditorActions::translate()
{
    for (const ActionRow& row : actionRows()) {
        QAction* const action = plainActions[row.which];
        action->setText(CurveEditor::tr(row.text));
        if (row.whatsThis) {
            action->setWhatsThis(CurveEditor::tr(row.whatsThis));
        }
        if (row.shortcut) {
            action->setShortcut(QKeySequence(row.shortcut));
        }
    }
    QVector<ButtonState> states;
    for (const QToolButton* const button : std::as_const(toolButtons)) {
        states.append(stateOf(button));
    }
    for (const ToolButtonRow& row : allToolButtonRows()) {
        toolButtonActions[row.which]->setText(CurveEditor::tr(row.text));
    }
    for (int which = 0; which < toolButtons.size() && which < states.size(); ++which) {
        restoreState(toolButtons[which], states[which]);
    }
    menus[firstBehaviourSubMenu]->setTitle(CurveEditor::tr(firstBehaviourTitle));
    menus[lastBehaviourSubMenu]->setTitle(CurveEditor::tr(lastBehaviourTitle));
}

} // namespace curve_editor
