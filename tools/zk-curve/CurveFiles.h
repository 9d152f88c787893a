#pragma once

#include "files/CurveContent.h"

#include <QString>
#include <QStringList>

#include <functional>

/// The exit statuses of the command.
enum exitStatus : int
{
    allGood = 0,
    someFileBad = 1,
    wrongUsage = 2
};

/// A curve file, or "-" for the standard streams. What goes wrong is told on the standard error
/// stream, as FILE:LINE:COLUMN: what.
bool readCurve(const QString& name, curve_files::CurveContent& content,
               curve_files::CurveFormat* format = nullptr);
bool writeCurve(const QString& name, const curve_files::CurveContent& content,
                curve_files::CurveFormat format);
/// The file that was there outlives a failure.
bool writeBytes(const QString& name, const QByteArray& bytes);

/// Whether both names are those of one file, which is there; standard streams are none.
bool isSameFile(const QString& name, const QString& other);

/// The name in messages of a file, or of a standard stream.
QString shownName(const QString& name);

/// One line on the standard error stream, in the place of what forEachFile() shows there.
void tell(const QString& line);
void tell(const QString& name, const curve_files::CurveFileResult& result);

/// Does something with each file, and shows how far it is where there are many and somebody looks
/// at a terminal. The status tells whether all went well.
int forEachFile(const QStringList& names, const std::function<bool(const QString& name)>& work);
