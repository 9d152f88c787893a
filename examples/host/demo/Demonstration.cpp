#include "Demonstration.h"

#include "ClipboardChapter.h"
#include "CurvesChapter.h"
#include "DemoTools.h"
#include "ExpressionChapter.h"
#include "FilesChapter.h"
#include "HostWindow.h"
#include "KeyPropertiesChapter.h"
#include "KeysChapter.h"
#include "SettingsChapter.h"

#include <QApplication>

Demonstration::Demonstration(HostWindow& hostWindow, const QString& path)
    : window(hostWindow)
    , folder(path)
{}

bool Demonstration::run()
{
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    folder.mkpath(QStringLiteral("."));
    DemoTools tools(window, folder);
    return KeysChapter(tools).run() && ExpressionChapter(tools).run() &&
           FilesChapter(tools).run() && ClipboardChapter(tools).run() &&
           CurvesChapter(tools).run() && KeyPropertiesChapter(tools).run() &&
           SettingsChapter(tools).run();
}
