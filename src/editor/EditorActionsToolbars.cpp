// The toolbars, their buttons and the drop-downs of these.

#include "editor/EditorActions.h"
#include "editor/ToolIcons.h"
#include "editor/TopToolBar.h"

#include <QAction>
#include <QMenu>
#include <QToolButton>

namespace curve_editor {

namespace {

using Editor = CurveEditor;

void setToolbarWidth(QToolBar* toolbar, const ToolBarRow& row, int iconSize)
{
    const int width = row.icons * iconSize + row.extra;
    if (row.fixedWidth) {
        toolbar->setFixedWidth(width);
    } else {
        toolbar->setMinimumWidth(width);
    }
}

} // namespace

void EditorActions::initTopToolbar()
{
    menus[toolbarsSubMenu] = new QMenu(Editor::tr("Toolbars"), editor);
    for (const ToolBarRow& row : toolBarRows()) {
        addTopToolbar(Editor::tr(row.title), row.which);
    }
    for (const ToolBarButtons& row : toolBarButtonRows()) {
        for (const ToolButtonRow& button : row.buttons) {
            addTopToolbarBtn(button, topToolBarList[row.toolBar]);
            addDropDown(button.which);
        }
    }
    for (const ToolBarRow& row : toolBarRows()) {
        setToolbarWidth(topToolBarList[row.which], row, icons->size);
    }
    initToolButtonStates();

    QWidget* const place = editor->topToolbar;
    place->setMaximumWidth(1000);
    place->setFixedHeight(icons->size + 10);
    place->setAcceptDrops(true);
    place->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(place, SIGNAL(customContextMenuRequested(const QPoint&)), editor,
                     SLOT(showTopToolbarMenu()));
}

void EditorActions::addDropDown(Editor::topToolButtons button)
{
    const DropDownRow* const dropDown = dropDownOf(button);
    if (!dropDown) {
        return;
    }
    addTopToolbarMenu(button, dropDown->which);
    QMenu* const menu = topToolBtnMenus[dropDown->which];
    for (const ToolButtonRow& entry : dropDown->entries) {
        addTopToolbarMenuBtn(entry, menu);
    }
    if (dropDown->startEntry >= 0) {
        setDefaultButton(toolButtonActions[dropDown->startEntry], button);
    }
}

/// What can be checked, what is seen, and which buttons refresh the editor when let go.
void EditorActions::initToolButtonStates()
{
    for (const ToolButtonRow& row : allToolButtonRows()) {
        QAction* const action = toolButtonActions[row.which];
        action->setCheckable(row.checkable == actionCheckable);
        action->setVisible(row.visible);
        if (row.checkable == buttonCheckable) {
            toolButtons[row.which]->setCheckable(true);
        }
    }
    toolButtonActions[Editor::horizontalSnapButton]->setIcon(QIcon());
    toolButtonActions[Editor::verticalSnapButton]->setIcon(QIcon());
    for (const Editor::topToolButtons which :
         {Editor::snapToGridButton, Editor::horizontalSnapButton, Editor::verticalSnapButton,
          Editor::showToolTipsButton}) {
        QObject::connect(toolButtons[which], SIGNAL(released()), editor, SLOT(refreshEditor()));
    }
}

void EditorActions::addTopToolbar(const QString& name, Editor::topToolBars which)
{
    auto* const toolbar = new TopToolBar(name, editor->topToolbar);
    QAction* const action = menus[toolbarsSubMenu]->addAction(name);
    action->setCheckable(true);
    action->toggle();
    topToolBarActions[which] = action;
    QObject::connect(action, SIGNAL(triggered()), editor, SLOT(refreshEditor()));

    topToolBarList[which] = toolbar;
    editor->hboxLayout->addWidget(toolbar);
}

QAction* EditorActions::newButtonAction(const ToolButtonRow& row, QWidget* parent)
{
    auto* const action = new QAction(Editor::tr(row.text), parent);
    action->setObjectName(row.text);
    action->setIcon(icons->icon(row.which));
    action->setToolTip(row.toolTip);
    toolButtonActions[row.which] = action;
    QObject::connect(action, SIGNAL(triggered()), editor, row.slot);
    return action;
}

void EditorActions::addTopToolbarBtn(const ToolButtonRow& row, QToolBar* toolbar)
{
    QAction* const action = newButtonAction(row, toolbar);
    toolbar->addAction(action);
    auto* const button = qobject_cast<QToolButton*>(toolbar->widgetForAction(action));
    toolbar->setIconSize(QSize(icons->size, icons->size));
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setContentsMargins(0, 0, 0, 0);
    toolButtons[row.which] = button;
}

void EditorActions::addTopToolbarMenu(Editor::topToolButtons button, Editor::topToolBtnsMenus menu)
{
    topToolBtnMenus[menu] = new QMenu(toolButtons[button]);
    toolButtons[button]->setMenu(topToolBtnMenus[menu]);
    toolButtons[button]->setPopupMode(QToolButton::MenuButtonPopup);
}

void EditorActions::addTopToolbarMenuBtn(const ToolButtonRow& row, QMenu* menu)
{
    QAction* const action = newButtonAction(row, menu);
    menu->addAction(action);
    // Never shown: it holds the action, as the buttons on the toolbars do.
    auto button = std::make_unique<QToolButton>();
    button->setFixedSize(128, 128);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setContentsMargins(0, 0, 0, 0);
    button->setDefaultAction(action);
    toolButtons[row.which] = button.get();
    menuEntryButtons.push_back(std::move(button));
}

void EditorActions::setDefaultButton(QAction* action, Editor::topToolButtons button)
{
    QToolButton* const target = toolButtons.value(button, nullptr);
    if (!target || !action) {
        return;
    }
    QMenu* const menu = target->menu();
    target->setDefaultAction(action);
    target->setMenu(menu);
}

void EditorActions::setDefaultButton(Editor::topToolButtons entry, Editor::topToolButtons button)
{
    setDefaultButton(toolButtonActions[entry], button);
}

} // namespace curve_editor
