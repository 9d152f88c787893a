#include "ScreenPicture.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <tuple>

namespace {

constexpr int titleHeight = 24; ///< pixels

bool hasTitle(const QWidget& window)
{
    return window.windowType() != Qt::Popup && window.windowType() != Qt::ToolTip;
}

/// Where the window stands on the screen, its title strip included.
QRect placeOf(const QWidget& window)
{
    const QRect place(window.mapToGlobal(QPoint(0, 0)), window.size());
    return hasTitle(window) ? place.adjusted(-1, -titleHeight, 1, 1) : place;
}

void drawTitle(QPainter& painter, const QWidget& window, const QRect& frame)
{
    painter.fillRect(frame, QColor(0x5a6472));
    QFont font = QApplication::font();
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(
        QRect(frame.topLeft(), QSize(frame.width(), titleHeight)).adjusted(8, 0, -8, 0),
        Qt::AlignVCenter | Qt::AlignLeft, window.windowTitle());
}

void drawWindow(QPainter& painter, QWidget& window, const QPoint& origin)
{
    if (hasTitle(window)) {
        drawTitle(painter, window, placeOf(window).translated(-origin));
    }
    painter.drawPixmap(window.mapToGlobal(QPoint(0, 0)) - origin, window.grab());
}

/// Boxes stand over dialogs and menus over both; of two alike, the one opened from the other is on
/// top and stands further right.
auto stackingOrder(const QWidget& window)
{
    return std::make_tuple(!hasTitle(window), window.isModal(), window.x(), window.y());
}

QList<QWidget*> windowsOver(const QWidget& window)
{
    QList<QWidget*> others;
    for (QWidget* const other : QApplication::topLevelWidgets()) {
        if (other != &window && other->isVisible() && !other->size().isEmpty()) {
            others.append(other);
        }
    }
    std::sort(others.begin(), others.end(), [](const QWidget* left, const QWidget* right) {
        return stackingOrder(*left) < stackingOrder(*right);
    });
    return others;
}

} // namespace

QPixmap screenPicture(QWidget& window)
{
    const QList<QWidget*> others = windowsOver(window);
    const QRect own(window.mapToGlobal(QPoint(0, 0)), window.size());
    QRect all = own;
    for (const QWidget* const other : others) {
        all |= placeOf(*other);
    }
    QPixmap picture(all.size());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.drawPixmap(own.topLeft() - all.topLeft(), window.grab());
    for (QWidget* const other : others) {
        drawWindow(painter, *other, all.topLeft());
    }
    return picture;
}

QPixmap windowPicture(QWidget& window)
{
    const QRect place = placeOf(window);
    QPixmap picture(place.size());
    QPainter painter(&picture);
    drawWindow(painter, window, place.topLeft());
    return picture;
}
