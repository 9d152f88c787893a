#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QObject>
#include <QStringList>
#include <QTimer>

/// Closes every message box that opens while it lives, and notes what each said.
class BoxCatcher : public QObject
{
public:
    BoxCatcher()
    {
        timer.callOnTimeout(this, [this] { closeBox(); });
        timer.start(0);
    }

    QStringList titles;
    QStringList texts;
    QList<QMessageBox::Icon> icons;

private:
    void closeBox()
    {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box && box->isVisible()) {
            titles.append(box->windowTitle());
            texts.append(box->text());
            icons.append(box->icon());
            box->done(QMessageBox::Ok);
        }
    }

    QTimer timer;
};
