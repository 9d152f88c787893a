// The toolbars, their buttons and the drop-downs of these.

#include "editor/CurveEditor.h"
#include "editor/MenuTable.h"
#include "editor/ToolbarTable.h"
#include "editor/TopToolBar.h"

#include <QAction>
#include <QCursor>
#include <QIcon>
#include <QMenu>
#include <QPointer>
#include <QToolButton>

using namespace curve_editor;

namespace {

/// The picture of a button: "curveeditor" and its number in three digits.
QString iconFile(const QString& folder, const int& number, const QString& suffix)
{
    const QString digits = QString::number(number).rightJustified(3, QLatin1Char('0'));
    return QString("%1/curveeditor%2%3.png").arg(folder, digits, suffix);
}

/// A missing picture gives an empty icon.
QIcon buttonIcon(const QString& folder, const int& number)
{
    QIcon icon;
    icon.addFile(iconFile(folder, number, QString()));
    icon.addFile(iconFile(folder, number, "-d"), QSize(), QIcon::Disabled, QIcon::Off);
    return icon;
}

void setToolbarWidth(QToolBar* toolbar, const ToolBarRow& row, const int& iconSize)
{
    const int width = row.icons * iconSize + row.extra;
    if (row.fixedWidth) {
        toolbar->setFixedWidth(width);
    } else {
        toolbar->setMinimumWidth(width);
    }
}

} // namespace

void CurveEditor::initTopToolbar()
{
    toolButtons.fill(nullptr, topToolButtonsCount);
    toolButtonActions.fill(nullptr, topToolButtonsCount);
    topToolBarList.fill(nullptr, toolBarRows().size());
    topToolBarActions.fill(nullptr, toolBarRows().size());
    topToolBtnMenus.fill(nullptr, dropDownRows().size());
    menus[toolbarsSubMenu] = new QMenu(tr("Toolbars"), this);

    for (const ToolBarRow& row : toolBarRows()) {
        addTopToolbar(tr(row.title), row.which);
    }
    for (const ToolBarButtons& row : toolBarButtonRows()) {
        for (const ToolButtonRow& button : row.buttons) {
            addTopToolbarBtn(button.text, button.toolTip, button.slot, button.which,
                             topToolBarList[row.toolBar]);
            addDropDown(button.which);
        }
    }
    for (const ToolBarRow& row : toolBarRows()) {
        setToolbarWidth(topToolBarList[row.which], row, iconSize);
    }
    initToolButtonStates();

    topToolbar->setMaximumWidth(1000);
    topToolbar->setFixedHeight(iconSize + 10);
    topToolbar->setAcceptDrops(true);
    topToolbar->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(topToolbar, SIGNAL(customContextMenuRequested(const QPoint&)), this,
            SLOT(showTopToolbarMenu()));
}

void CurveEditor::addDropDown(const topToolButtons& button)
{
    const DropDownRow* const dropDown = dropDownOf(button);
    if (!dropDown) {
        return;
    }
    addTopToolbarMenu(button, dropDown->which);
    QMenu* const menu = topToolBtnMenus[dropDown->which];
    for (const ToolButtonRow& entry : dropDown->entries) {
        addTopToolbarMenuBtn(entry.text, entry.toolTip, entry.slot, entry.which, menu);
    }
    if (dropDown->startEntry >= 0) {
        setDefaultButton(toolButtonActions[dropDown->startEntry], button);
    }
}

/// What can be checked, what is seen, and which buttons refresh the editor when let go.
void CurveEditor::initToolButtonStates()
{
    for (const ToolButtonRow& row : allToolButtonRows()) {
        QAction* const action = toolButtonActions[row.which];
        action->setCheckable(row.checkable == actionCheckable);
        action->setVisible(row.visible);
        if (row.checkable == buttonCheckable) {
            toolButtons[row.which]->setCheckable(true);
        }
    }
    toolButtonActions[horizontalSnapButton]->setIcon(QIcon());
    toolButtonActions[verticalSnapButton]->setIcon(QIcon());
    for (const topToolButtons which :
         {snapToGridButton, horizontalSnapButton, verticalSnapButton, showToolTipsButton}) {
        connect(toolButtons[which], SIGNAL(released()), this, SLOT(refreshEditor()));
    }
}

void CurveEditor::addTopToolbar(const QString& name, const topToolBars& which)
{
    auto* const toolbar = new TopToolBar(name, topToolbar);
    QAction* const action = menus[toolbarsSubMenu]->addAction(name);
    action->setCheckable(true);
    action->toggle();
    topToolBarActions[which] = action;
    connect(action, SIGNAL(triggered()), this, SLOT(refreshEditor()));

    topToolBarList[which] = toolbar;
    hboxLayout->addWidget(toolbar);
}

QAction* CurveEditor::newButtonAction(const char* text, const QString& toolTip, const char* slot,
                                      const topToolButtons& which, QWidget* parent)
{
    auto* const action = new QAction(tr(text), parent);
    action->setObjectName(text);
    action->setIcon(buttonIcon(iconsPath, which));
    action->setToolTip(toolTip);
    toolButtonActions[which] = action;
    connect(action, SIGNAL(triggered()), this, slot);
    return action;
}

void CurveEditor::addTopToolbarBtn(const char* text, const QString& toolTip, const char* slot,
                                   const topToolButtons& which, QToolBar* toolbar)
{
    QAction* const action = newButtonAction(text, toolTip, slot, which, toolbar);
    toolbar->addAction(action);
    auto* const button = qobject_cast<QToolButton*>(toolbar->widgetForAction(action));
    toolbar->setIconSize(QSize(iconSize, iconSize));
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setContentsMargins(0, 0, 0, 0);
    toolButtons[which] = button;
}

void CurveEditor::addTopToolbarMenu(const topToolButtons& button, const topToolBtnsMenus& menu)
{
    topToolBtnMenus[menu] = new QMenu(toolButtons[button]);
    toolButtons[button]->setMenu(topToolBtnMenus[menu]);
    toolButtons[button]->setPopupMode(QToolButton::MenuButtonPopup);
}

void CurveEditor::addTopToolbarMenuBtn(const char* text, const QString& toolTip, const char* slot,
                                       const topToolButtons& which, QMenu* menu)
{
    QAction* const action = newButtonAction(text, toolTip, slot, which, menu);
    menu->addAction(action);
    // Never shown: it holds the action, as the buttons on the toolbars do.
    auto button = std::make_unique<QToolButton>();
    button->setFixedSize(128, 128);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setContentsMargins(0, 0, 0, 0);
    button->setDefaultAction(action);
    toolButtons[which] = button.get();
    menuEntryButtons.push_back(std::move(button));
}

void CurveEditor::setDefaultButton(QAction* action, const topToolButtons& button)
{
    QToolButton* const target = toolButtons.value(button, nullptr);
    if (!target || !action) {
        return;
    }
    QMenu* const menu = target->menu();
    target->setDefaultAction(action);
    target->setMenu(menu);
}

void CurveEditor::showTopToolbarMenu()
{
    // A text half typed is taken first: the opening menu would take it, and the box of an error
    // would close the menu before it runs, so that it never returned.
    const QPointer<CurveEditor> self(this);
    if (commandLine->hasFocus() && commandLine->isModified()) {
        executeCommand();
    }
    if (self && !menus[toolbarsSubMenu]->isVisible()) {
        menus[toolbarsSubMenu]->exec(QCursor::pos()); // of two loops the first would never end
    }
}
