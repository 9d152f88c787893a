// The menu bar and the actions of its entries.

#include "editor/CurveEditor.h"
#include "editor/MenuTable.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

using namespace curve_editor;

void CurveEditor::initActions()
{
    QVector<QActionGroup*> groups(actionGroupsCount, nullptr);
    for (int group = firstEndGroup; group < actionGroupsCount; ++group) {
        groups[group] = new QActionGroup(this);
    }
    plainActions.fill(nullptr, editorActionsCount);
    for (const ActionRow& row : actionRows()) {
        auto* const action = new QAction(this);
        action->setObjectName(row.objectName);
        plainActions[row.which] = action;
        if (row.group != noGroup) {
            action->setCheckable(true);
            groups[row.group]->addAction(action);
            action->setChecked(row.checkedAtStart);
        }
        if (row.shortcut) {
            // Two editors of one window must not meet in one shortcut.
            action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
            addAction(action);
        }
        if (row.slot) {
            connect(action, SIGNAL(triggered()), this, row.slot);
        }
    }
    // The entry is connected twice, so that its slot runs twice; the second run finds no picture.
    connect(plainActions[clearImageAction], SIGNAL(triggered()), this, SLOT(clearImage()));
}

void CurveEditor::initMenus()
{
    for (const MenuRow& row : menuRows()) {
        auto* const menu = new QMenu(tr(row.title), this);
        if (row.iconAction >= 0) {
            menu->setIcon(plainActions[row.iconAction]->icon());
        }
        menus[row.which] = menu;
    }
    for (const MenuRow& row : menuRows()) {
        for (const MenuEntry& entry : row.entries) {
            addMenuEntry(menus[row.which], entry.kind, entry.value);
        }
    }
    for (const editorMenus& which : menuBarRows()) {
        menuBar->addMenu(menus[which]);
    }
}

void CurveEditor::addMenuEntry(QMenu* menu, const int& kind, const int& value)
{
    switch (kind) {
    case actionEntry:
        menu->addAction(plainActions[value]);
        break;
    case buttonEntry:
        menu->addAction(toolButtonActions[value]);
        break;
    case subMenuEntry:
        menu->addMenu(menus[value]);
        break;
    default:
        menu->addSeparator();
        break;
    }
}

void CurveEditor::initInsertMenu()
{
    // The line's own menu and tool bar: whoever goes there has not left the line.
    expressionTool->setFocusProxy(commandLine);
    auto* const menu = new QMenu(tr("Insert"), commandLine);
    menus[insertMenu] = menu;
    for (const InsertRow& row : insertRows()) {
        QMenu* const subMenu = menu->addMenu(tr(row.title));
        for (const char* const text : row.texts) {
            subMenu->addAction(text);
        }
        connect(subMenu, SIGNAL(triggered(QAction*)), this, row.slot);
        menus[row.which] = subMenu;
    }
    connect(menus[dVarsSubMenu], SIGNAL(aboutToShow()), this, SLOT(populateDVarMenu()));
    expressionTool->addAction(menu->menuAction());
    if (auto* const button =
            qobject_cast<QToolButton*>(expressionTool->widgetForAction(menu->menuAction()))) {
        button->setPopupMode(QToolButton::InstantPopup);
    }
}

QMenu* CurveEditor::keysMenu() const
{
    return menus[curve_editor::keysMenu];
}
