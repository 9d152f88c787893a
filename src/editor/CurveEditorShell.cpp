// The window put together, and its menus in the present language.

#include "editor/CurveEditor.h"

#include "core/Truncate.h"
#include "editor/CurveEditorPrivate.h"
#include "widgets/ControlMenu2.h"

#include <QCursor>
#include <QMenu>
#include <QPointer>

#include <cmath>

void CurveEditor::preInit()
{
    mainMenu->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    splitter10->resize(truncateToInt(std::ceil(width() * 0.85)), 300);

    QPalette menuPalette = mainMenu->palette();
    menuPalette.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::darkGray);
    mainMenu->setPalette(menuPalette);
    d->actions.initMenuBar();

    d->actions.initActions();
    addToSpline->setCheckable(true);
    addToSpline->setFlat(true);
    d->actions.initTopToolbar();
    d->actions.initMenus();
    d->treeMenu = new ControlMenu2(this);
    d->readout.build(mainMenu);
    d->actions.initInsertMenu();

    tabExpresion->setContentsMargins(10, 0, 0, 0);
    hboxLayout->setSizeConstraint(QLayout::SetMinimumSize);
    hboxLayout->setAlignment(Qt::AlignLeft);
    languageChange();
}

CustomEditLine* CurveEditor::positionX() const
{
    return d->readout.positionX();
}

CustomEditLine* CurveEditor::positionY() const
{
    return d->readout.positionY();
}

void CurveEditor::languageChange()
{
    setWindowTitle(tr("Curve Editor"));
    d->actions.translate();
}

QMenu* CurveEditor::keysMenu() const
{
    return d->actions.menu(curve_editor::keysMenu);
}

void CurveEditor::setDefaultButton(QAction* action, const topToolButtons& button)
{
    d->actions.setDefaultButton(action, button);
}

void CurveEditor::showTopToolbarMenu()
{
    // A text half typed is taken first: the opening menu would take it, and the box of an error
    // would close the menu before it runs, so that it never returned.
    const QPointer<CurveEditor> self(this);
    if (commandLine->hasFocus() && commandLine->isModified()) {
        executeCommand();
    }
    if (!self) {
        return;
    }
    QMenu* const menu = d->actions.menu(curve_editor::toolbarsSubMenu);
    if (!menu->isVisible()) {
        menu->exec(QCursor::pos()); // of two loops the first would never end
    }
}
