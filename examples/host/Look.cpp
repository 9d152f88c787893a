#include "Look.h"

#include <editor/CurveEditor.h>
#include <editor/Look.h>

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

namespace {

/// The same style everywhere, and without a screen the same letters.
void setStyleAndFont()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        QApplication::setFont(QFont(QStringLiteral("Liberation Sans"), 10));
    }
}

} // namespace

void setDarkLook()
{
    setStyleAndFont();
    QPalette palette(QColor(0x444a57), QColor(0x333843));
    palette.setColor(QPalette::Base, QColor(0x20232a));
    palette.setColor(QPalette::AlternateBase, QColor(0x262a32));
    palette.setColor(QPalette::Highlight, QColor(0x3d7eb8));
    palette.setColor(QPalette::ToolTipBase, QColor(0x20232a));
    palette.setColor(QPalette::ToolTipText, QColor(0xe6e6e6));
    QApplication::setPalette(palette);
}

void setLightLook()
{
    setStyleAndFont();
    QPalette palette(QColor(0xefefef), QColor(0xefefef));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf7f7f7));
    palette.setColor(QPalette::Highlight, QColor(0x308cc6));
    palette.setColor(QPalette::ToolTipBase, QColor(0xffffdc));
    palette.setColor(QPalette::ToolTipText, Qt::black);
    QApplication::setPalette(palette);
}

void setCanvasLook(CurveEditor& editor)
{
    curve_editor::setLook(editor, curve_editor::Look::dark);
}
