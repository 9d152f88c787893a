#include "Look.h"

#include <editor/CurveEditor.h>

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
    editor.setCanvasColor(QColor(0x1b1e25));
    editor.setSelectionColor(QColor(0x222a3d));
    editor.setFrameLinesColor(QColor(0x3a4150));
    editor.setFrameHLineColor(QColor(0x4a5262));
    editor.setFrameVLineColor(QColor(0x4a5262));
    editor.setFrameFontColor(QColor(0x99a3b8));
    editor.setTimeLineColor(QColor(0xffd166));
    editor.setControlPointColor(QColor(0xf2f2f2));
    editor.setControlPointSelectedColor(QColor(0xff4d5e));
}
