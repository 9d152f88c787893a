#include "widgets/ControlMenu2.h"

#include <QAction>

ControlMenu2::ControlMenu2(QWidget* parent)
    : QMenu(parent)
{
    addSeparator();
    const QAction* const removeItem = addAction(QStringLiteral("Remove from editing list"));
    connect(removeItem, &QAction::triggered, this, &ControlMenu2::setRemoveItem);
    const QAction* const changeColor = addAction(QStringLiteral("Change color"));
    connect(changeColor, &QAction::triggered, this, &ControlMenu2::setColorChange);
}
