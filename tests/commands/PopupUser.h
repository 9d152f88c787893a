#pragma once

#include "commands/Chance.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>

/// Stands for the user of whatever opens a loop of its own while a step runs: takes an entry of a
/// menu or closes it, answers a dialog or dismisses it.
class PopupUser : public QObject
{
public:
    PopupUser()
    {
        timer.callOnTimeout(this, [this] { act(); });
        timer.start(0);
    }

    /// The chance of the step that runs; not owned, null between steps.
    Chance* chance = nullptr;
    /// How many menus and dialogs there were.
    int served = 0;

private:
    void act()
    {
        if (auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            ++served;
            useMenu(*menu);
        } else if (QWidget* const popup = QApplication::activePopupWidget()) {
            ++served;
            popup->close();
        } else if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            ++served;
            useDialog(*dialog);
        }
    }

    bool happens(const int& percent) { return chance && chance->chance(percent); }

    void useMenu(QMenu& menu)
    {
        QList<QAction*> entries;
        for (QAction* entry : menu.actions()) {
            if (entry->isEnabled() && !entry->isSeparator() && !entry->menu()) {
                entries.append(entry);
            }
        }
        if (!entries.isEmpty() && happens(60)) {
            menu.setActiveAction(chance->oneOf(entries));
            QTest::keyClick(&menu, Qt::Key_Return);
        }
        menu.close();
    }

    void useDialog(QDialog& dialog)
    {
        if (happens(50)) {
            for (QLineEdit* field : dialog.findChildren<QLineEdit*>()) {
                field->setText(QString::number(chance->offset()));
            }
            dialog.accept();
        } else {
            dialog.done(QDialog::Rejected);
        }
    }

    QTimer timer;
};
