#pragma once

#include "support/Patience.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <functional>

/// Stands for the user of the next modal dialog of a class: acts on it while it runs, and closes
/// it should it stay open.
template <class Dialog>
class DialogUser : public QObject
{
public:
    explicit DialogUser(const std::function<void(Dialog&)>& what)
        : act(what)
    {
        look.callOnTimeout(this, [this] { actOnce(); });
        look.start(0);
        limit.setSingleShot(true);
        limit.callOnTimeout(this, [this] {
            wasForced = true;
            shown->reject();
        });
    }

    /// The dialog opened and the user acted, and it did not have to be closed by force.
    bool hasActed() const { return acted && !wasForced; }

private:
    void actOnce()
    {
        auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible()) {
            return;
        }
        look.stop();
        acted = true;
        shown = dialog;
        // The limit is for this dialog: it is not to reject one that comes after it.
        connect(dialog, &QDialog::finished, &limit, &QTimer::stop);
        connect(dialog, &QObject::destroyed, &limit, &QTimer::stop);
        limit.start(patience);
        act(*dialog);
    }

    std::function<void(Dialog&)> act;
    QDialog* shown = nullptr; ///< not owned; alive while the limit runs
    QTimer look;
    QTimer limit;
    bool acted = false;
    bool wasForced = false;
};

/// Replaces the text of a field key by key.
inline void typeInto(QLineEdit* field, const QString& text)
{
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

inline void click(QWidget* widget)
{
    QTest::mouseClick(widget, Qt::LeftButton);
}

/// Picks an entry with the arrow keys.
inline void choose(QComboBox* box, const int& index)
{
    box->setFocus();
    while (box->currentIndex() > index) {
        QTest::keyClick(box, Qt::Key_Up);
    }
    while (box->currentIndex() < index) {
        QTest::keyClick(box, Qt::Key_Down);
    }
}
