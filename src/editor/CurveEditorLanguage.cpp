#include "editor/CurveEditor.h"
#include "editor/MenuTable.h"
#include "editor/ToolbarTable.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QToolButton>

using namespace curve_editor;

void CurveEditor::languageChange()
{
    setWindowTitle(tr("Curve Editor"));
    for (const ActionRow& row : actionRows()) {
        QAction* const action = plainActions[row.which];
        action->setText(tr(row.text));
        if (row.whatsThis) {
            action->setWhatsThis(tr(row.whatsThis));
        }
        if (row.shortcut) {
            action->setShortcut(QKeySequence(row.shortcut));
        }
    }
    for (const ToolButtonRow& row : allToolButtonRows()) {
        toolButtonActions[row.which]->setText(tr(row.text));
        // A new text makes the button take its manners from the action anew.
        if (row.checkable == buttonCheckable) {
            const bool checked = toolButtons[row.which]->isChecked();
            toolButtons[row.which]->setCheckable(true);
            toolButtons[row.which]->setChecked(checked);
        }
    }
    menus[firstBehaviourSubMenu]->setTitle(tr(firstBehaviourTitle));
    menus[lastBehaviourSubMenu]->setTitle(tr(lastBehaviourTitle));
}
