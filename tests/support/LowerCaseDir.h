#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QString>

/// A temporary folder whose whole path is in lower case, so that a path put into lower case still
/// leads there. Removed with all that is in it.
class LowerCaseDir
{
public:
    LowerCaseDir()
    {
        const QString base = QDir::tempPath() == QDir::tempPath().toLower()
                                 ? QDir::tempPath()
                                 : QStringLiteral("/tmp");
        const QString pattern =
            QStringLiteral("%1/zk-%2-%3").arg(base).arg(QCoreApplication::applicationPid());
        for (int number = 0; folder.isEmpty() && number < 1000; ++number) {
            if (QDir().mkdir(pattern.arg(number))) {
                folder = pattern.arg(number);
            }
        }
    }
    ~LowerCaseDir()
    {
        if (!folder.isEmpty()) {
            QDir(folder).removeRecursively();
        }
    }
    LowerCaseDir(const LowerCaseDir&) = delete;
    LowerCaseDir& operator=(const LowerCaseDir&) = delete;

    QString path() const { return folder; }
    QString filePath(const QString& name) const { return folder + QLatin1Char('/') + name; }

    QStringList names() const
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden |
                                      QDir::System);
    }

private:
    QString folder;
};
