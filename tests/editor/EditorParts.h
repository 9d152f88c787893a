#pragma once

#include "editor/CurveEditor.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include <functional>

/// Ways to the parts of an editor as its user finds them.

inline QToolBar* toolBarTitled(const CurveEditor& editor, const QString& title)
{
    for (QToolBar* const toolBar : editor.topToolbar->findChildren<QToolBar*>()) {
        if (toolBar->windowTitle() == title) {
            return toolBar;
        }
    }
    return nullptr;
}

/// The button of the toolbar's n-th own action, hidden ones counted.
inline QToolButton* toolButton(const CurveEditor& editor, const QString& title, const int& index)
{
    QToolBar* const toolBar = toolBarTitled(editor, title);
    const QList<QAction*> actions = toolBar ? toolBar->actions() : QList<QAction*>();
    if (index >= actions.size()) {
        return nullptr;
    }
    return qobject_cast<QToolButton*>(toolBar->widgetForAction(actions.at(index)));
}

/// The action of a text in a list; null if there is none.
inline QAction* actionTitled(const QList<QAction*>& actions, const QString& text)
{
    for (QAction* const action : actions) {
        if (action->text() == text) {
            return action;
        }
    }
    return nullptr;
}

/// The action at "Menu/Sub-menu/Entry", which may be a menu's own.
inline QAction* menuAction(const CurveEditor& editor, const QString& path)
{
    QList<QAction*> actions = editor.mainMenu->findChild<QMenuBar*>()->actions();
    actions += editor.expressionTool->actions();
    QAction* found = nullptr;
    for (const QString& part : path.split(QLatin1Char('/'))) {
        found = actionTitled(actions, part);
        if (!found) {
            return nullptr;
        }
        actions = found->menu() ? found->menu()->actions() : QList<QAction*>();
    }
    return found;
}

inline QMenu* menuAt(const CurveEditor& editor, const QString& path)
{
    QAction* const action = menuAction(editor, path);
    return action ? action->menu() : nullptr;
}

/// Texts of a menu's entries, "----" for a separator.
inline QStringList menuTexts(const QMenu* menu)
{
    QStringList texts;
    for (const QAction* const action : menu->actions()) {
        texts.append(action->isSeparator() ? QString("----") : action->text());
    }
    return texts;
}

/// The texts of the tree's top items, in order.
inline QStringList topTexts(const CurveEditor& editor)
{
    QStringList texts;
    for (int i = 0; i < editor.checkListsEditing->topLevelItemCount(); ++i) {
        texts.append(editor.checkListsEditing->topLevelItem(i)->text(0));
    }
    return texts;
}

/// The dotted names of all items of the tree, from the top down.
inline QStringList treeNames(const CurveEditor& editor)
{
    const EditingTree* const tree = editor.checkListsEditing;
    QStringList names;
    std::function<void(QTreeWidgetItem*)> collect = [&](QTreeWidgetItem* item) {
        names.append(tree->itemDotName(item));
        for (int i = 0; i < item->childCount(); ++i) {
            collect(item->child(i));
        }
    };
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        collect(tree->topLevelItem(i));
    }
    return names;
}

/// What a label of the menu bar shows.
inline QString readout(const CurveEditor& editor, const char* name)
{
    return editor.mainMenu->findChild<QLabel*>(name)->text();
}
