#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>

/// Closes every message box that opens while it lives, and notes what each said. The questions of
/// a file dialog are left to others.
class BoxCatcher : public QObject
{
public:
    BoxCatcher()
    {
        timer.callOnTimeout(this, [this] { closeBox(); });
        timer.start(0);
    }

    /// Called while a box is open; it may open further ones.
    std::function<void()> whileOpen;

    QStringList titles;
    QStringList texts;
    QList<QMessageBox::Icon> icons;

private:
    void closeBox()
    {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        const bool isQuestion = box && qobject_cast<QFileDialog*>(box->parentWidget());
        if (box && box->isVisible() && !isQuestion) {
            titles.append(box->windowTitle());
            texts.append(box->text());
            icons.append(box->icon());
            if (whileOpen) {
                timer.start(0); // a timer does not fire again within its own call
                whileOpen();
            }
            box->done(QMessageBox::Ok);
        }
    }

    QTimer timer;
};
