#pragma once

#include <QPixmap>

class QWidget;

/// The window with the dialogs, boxes and menus that lie over it, each where it stands on the
/// screen; wider than the window where one of them reaches beyond it.
QPixmap screenPicture(QWidget& window);

/// A dialog by itself, under a strip with its title; a menu as it is.
QPixmap windowPicture(QWidget& window);
