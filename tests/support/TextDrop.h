#pragma once

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

/// Whether a drag that comes over a widget is taken in.
inline bool enterDrag(QWidget& target, const QMimeData& data)
{
    QDragEnterEvent enter(target.rect().center(), Qt::CopyAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&target, &enter);
    return enter.isAccepted();
}

/// Whether a widget accepts a drop.
inline bool dropData(QWidget& target, const QMimeData& data)
{
    QDropEvent drop(target.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    drop.ignore();
    QApplication::sendEvent(&target, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

/// Drags a text over a widget and lets it go there.
inline bool dropText(QWidget& target, const QString& text)
{
    QMimeData data;
    data.setText(text);
    return enterDrag(target, data) && dropData(target, data);
}
