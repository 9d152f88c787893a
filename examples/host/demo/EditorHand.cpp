#include "EditorHand.h"

#include <editor/CurveEditor.h>

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTreeWidget>

namespace {

QString plain(QString text)
{
    return text.remove(QLatin1Char('&'));
}

QAction* named(const QList<QAction*>& actions, const QString& name)
{
    for (QAction* const action : actions) {
        if (action->text() == name || action->objectName() == name) {
            return action;
        }
    }
    return nullptr;
}

QLineEdit* lineOf(const QWidget& dialog, const QString& field)
{
    if (auto* const spinBox = dialog.findChild<QAbstractSpinBox*>(field)) {
        return spinBox->findChild<QLineEdit*>();
    }
    return dialog.findChild<QLineEdit*>(field);
}

} // namespace

EditorHand::EditorHand(CurveEditor& curveEditor)
    : editor(curveEditor)
{}

QAction* EditorHand::entry(const QString& path) const
{
    QList<QAction*> actions;
    for (const QMenu* const menu : menus()) {
        actions.append(menu->menuAction());
    }
    QAction* found = nullptr;
    for (const QString& part : path.split(QLatin1Char('/'))) {
        found = named(actions, part);
        if (!found) {
            return nullptr;
        }
        actions = found->menu() ? found->menu()->actions() : QList<QAction*>();
    }
    return found;
}

QMenu* EditorHand::menu(const QString& path) const
{
    const QAction* const found = entry(path);
    return found ? found->menu() : nullptr;
}

QList<QMenu*> EditorHand::menus() const
{
    QList<QMenu*> all;
    for (const QAction* const action : editor.mainMenu->findChild<QMenuBar*>()->actions()) {
        all.append(action->menu());
    }
    for (const QAction* const action : editor.expressionTool->actions()) {
        if (action->menu()) {
            all.append(action->menu());
        }
    }
    return all;
}

bool EditorHand::choose(const QString& path) const
{
    QAction* const found = entry(path);
    if (!found || !found->isEnabled()) {
        return false;
    }
    found->trigger();
    return true;
}

QMenu* EditorHand::open(const QString& path) const
{
    const QStringList parts = path.split(QLatin1Char('/'));
    QMenu* opened = menu(parts.front());
    if (!opened) {
        return nullptr;
    }
    QAction* const title = opened->menuAction();
    const auto* const bar = editor.mainMenu->findChild<QMenuBar*>();
    const QRect onBar = bar->actionGeometry(title);
    const QWidget* const button = editor.expressionTool->widgetForAction(title);
    // The Insert menu stands at the window's lower edge and opens upward.
    opened->popup(button ? button->mapToGlobal(QPoint(button->width() - opened->sizeHint().width(),
                                                      -opened->sizeHint().height()))
                         : bar->mapToGlobal(onBar.bottomLeft()));
    for (int depth = 1; depth < parts.size(); ++depth) {
        QAction* const next = named(opened->actions(), parts.at(depth));
        if (!next || !next->menu()) {
            return nullptr;
        }
        opened->setActiveAction(next);
        QApplication::processEvents();
        opened = next->menu();
    }
    return opened;
}

void EditorHand::chooseOpen(QMenu& opened, const QString& text) const
{
    if (QAction* const wanted = named(opened.actions(), text)) {
        opened.setActiveAction(wanted);
        pressKey(opened, Qt::Key_Return);
    }
}

void EditorHand::closeMenus() const
{
    while (QWidget* const popup = QApplication::activePopupWidget()) {
        popup->close();
    }
}

void EditorHand::openTreeMenu(const QString& dotName) const
{
    QTreeWidget& tree = *editor.checkListsEditing;
    QTreeWidgetItem* item = nullptr;
    for (const QString& part : dotName.split(QLatin1Char('.'))) {
        QTreeWidgetItem* const above = item ? item : tree.invisibleRootItem();
        item = nullptr;
        for (int index = 0; index < above->childCount() && !item; ++index) {
            item = above->child(index)->text(0) == part ? above->child(index) : nullptr;
        }
        if (!item) {
            return;
        }
    }
    tree.scrollToItem(item);
    const QPoint at = tree.visualItemRect(item).center();
    QCursor::setPos(tree.viewport()->mapToGlobal(at));
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, tree.viewport()->mapToGlobal(at));
    QApplication::sendEvent(tree.viewport(), &event);
}

QWidget* EditorHand::keyDialog() const
{
    for (QDialog* const dialog : editor.findChildren<QDialog*>()) {
        if (dialog->inherits("CurveKeysDialog")) {
            return dialog;
        }
    }
    return nullptr;
}

void pressKey(QWidget& widget, Qt::Key key)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &up);
}

void typeText(QWidget& widget, const QString& text)
{
    for (const QChar letter : text) {
        QKeyEvent down(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(letter));
        QApplication::sendEvent(&widget, &down);
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(letter));
        QApplication::sendEvent(&widget, &up);
    }
}

void typeLine(QLineEdit& line, const QString& text)
{
    line.setFocus();
    line.selectAll();
    typeText(line, text);
    pressKey(line, Qt::Key_Return);
}

void fill(QWidget& dialog, const QString& field, const QString& text)
{
    if (QLineEdit* const line = lineOf(dialog, field)) {
        line->setFocus();
        line->selectAll();
        typeText(*line, text);
    }
}

QString textOf(const QWidget& dialog, const QString& field)
{
    const QLineEdit* const line = lineOf(dialog, field);
    return line ? line->text() : QString();
}

bool press(QWidget& dialog, const QString& button)
{
    for (QAbstractButton* const candidate : dialog.findChildren<QAbstractButton*>()) {
        if (plain(candidate->text()) == button) {
            candidate->click();
            return true;
        }
    }
    return false;
}
