#include "editor/TopToolBar.h"

#include <QEvent>
#include <QLayout>

TopToolBar::TopToolBar(const QString& title, QWidget* parent)
    : QToolBar(title, parent)
{
    setMovable(true);
    setFloatable(true);
    setAcceptDrops(true);
    setAllowedAreas(Qt::AllToolBarAreas);
    closeUp();
}

/// The base class takes the margins of each new style.
void TopToolBar::changeEvent(QEvent* event)
{
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::StyleChange) {
        closeUp();
    }
}

void TopToolBar::closeUp()
{
    setContentsMargins(0, 0, 0, 0);
    layout()->setContentsMargins(0, 0, 0, 0);
    layout()->setSpacing(0);
}
