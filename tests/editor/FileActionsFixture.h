#pragma once

#include "editor/EditorParts.h"
#include "support/BoxCatcher.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/FileDialogDriver.h"
#include "support/LowerCaseDir.h"

#include <QFile>

/// An editor and a folder for its files.
class FileActionsFixture
{
public:
    FileActionsFixture() { editor.editor.setCurrentDir(folder.path()); }

    static void keepAwayFromTheUsersSettings()
    {
        static const LowerCaseDir settings;
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(settings.path()));
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

    /// As a choice in the menu does.
    void trigger(const char* actionName)
    {
        auto* const action = editor.editor.findChild<QAction*>(actionName);
        QVERIFY(action && action->isEnabled());
        action->trigger();
    }

    /// Saves under the typed path.
    void saveAs(const QString& typed)
    {
        FileDialogDriver user(typed);
        trigger("saveCurve");
        QCOMPARE(user.dialogs, 1);
    }

    void write(const QString& name, const QByteArray& text) const
    {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(text), text.size());
    }

    QByteArray textOf(const QString& name) const
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be opened");
    }

    LowerCaseDir folder;
    EditorFixture editor;
    BoxCatcher boxes;
};
