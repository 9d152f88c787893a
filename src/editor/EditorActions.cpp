// The menu bar and the actions of its entries.

#include "editor/EditorActions.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

namespace curve_editor {

EditorActions::EditorActions(CurveEditor* owner, const ToolIcons* pictures)
    : editor(owner)
    , icons(pictures)
    , toolButtons(CurveEditor::topToolButtonsCount, nullptr)
    , topToolBarList(toolBarRows().size(), nullptr)
    , topToolBarActions(toolBarRows().size(), nullptr)
    , topToolBtnMenus(dropDownRows().size(), nullptr)
    , toolButtonActions(CurveEditor::topToolButtonsCount, nullptr)
    , plainActions(editorActionsCount, nullptr)
    , menus(editorMenusCount, nullptr)
{}

EditorActions::~EditorActions() = default;

QAction* EditorActions::plainAction(editorActions which) const
{
    return plainActions[which];
}

QMenu* EditorActions::menu(editorMenus which) const
{
    return menus[which];
}

QAction* EditorActions::buttonAction(CurveEditor::topToolButtons which) const
{
    return toolButtonActions[which];
}

void EditorActions::initMenuBar()
{
    menuBar = new QMenuBar(editor->mainMenu);
    menuBar->setNativeMenuBar(false);
    editor->mainMenu->addWidget(menuBar);
}

void EditorActions::initActions()
{
    QVector<QActionGroup*> groups(actionGroupsCount, nullptr);
    for (int group = firstEndGroup; group < actionGroupsCount; ++group) {
        groups[group] = new QActionGroup(editor);
    }
    for (const ActionRow& row : actionRows()) {
        auto* const action = new QAction(editor);
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
            editor->addAction(action);
        }
        if (row.slot) {
            QObject::connect(action, SIGNAL(triggered()), editor, row.slot);
        }
    }
    // The entry is connected twice, so that its slot runs twice; the second run finds no picture.
    QObject::connect(plainActions[clearImageAction], SIGNAL(triggered()), editor,
                     SLOT(clearImage()));
}

void EditorActions::initMenus()
{
    for (const MenuRow& row : menuRows()) {
        auto* const menu = new QMenu(CurveEditor::tr(row.title), editor);
        if (row.iconAction >= 0) {
            menu->setIcon(plainActions[row.iconAction]->icon());
        }
        menus[row.which] = menu;
    }
    for (const MenuRow& row : menuRows()) {
        for (const MenuEntry& entry : row.entries) {
            addMenuEntry(menus[row.which], entry);
        }
    }
    for (const editorMenus which : menuBarRows()) {
        menuBar->addMenu(menus[which]);
    }
}

void EditorActions::addMenuEntry(QMenu* menu, const MenuEntry& entry)
{
    switch (entry.kind) {
    case actionEntry:
        menu->addAction(plainActions[entry.value]);
        break;
    case buttonEntry:
        menu->addAction(toolButtonActions[entry.value]);
        break;
    case subMenuEntry:
        menu->addMenu(menus[entry.value]);
        break;
    default:
        menu->addSeparator();
        break;
    }
}

void EditorActions::initInsertMenu()
{
    CommandLine* const line = editor->commandLine;
    QToolBar* const bar = editor->expressionTool;
    // The line's own menu and tool bar: whoever goes there has not left the line.
    bar->setFocusProxy(line);
    auto* const insert = new QMenu(CurveEditor::tr("Insert"), line);
    menus[insertMenu] = insert;
    for (const InsertRow& row : insertRows()) {
        QMenu* const subMenu = insert->addMenu(CurveEditor::tr(row.title));
        for (const char* const text : row.texts) {
            subMenu->addAction(text);
        }
        QObject::connect(subMenu, SIGNAL(triggered(QAction*)), editor, row.slot);
        menus[row.which] = subMenu;
    }
    QObject::connect(menus[dVarsSubMenu], SIGNAL(aboutToShow()), editor, SLOT(populateDVarMenu()));
    bar->addAction(insert->menuAction());
    if (auto* const button =
            qobject_cast<QToolButton*>(bar->widgetForAction(insert->menuAction()))) {
        button->setPopupMode(QToolButton::InstantPopup);
    }
}

} // namespace curve_editor
