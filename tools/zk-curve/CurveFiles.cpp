#include "CurveFiles.h"
#include "files/FileReplacement.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <unistd.h>

using curve_files::CurveContent;
using curve_files::CurveFileResult;
using curve_files::CurveFormat;

namespace {

const QString standardStream = QStringLiteral("-");

bool isProgressShown = false;

void clearProgress()
{
    if (isProgressShown) {
        std::fputs("\r\x1b[K", stderr);
        std::fflush(stderr);
        isProgressShown = false;
    }
}

void showProgress(qsizetype number, const QStringList& names)
{
    clearProgress();
    std::fprintf(stderr, "%lld of %lld: %s", static_cast<long long>(number + 1),
                 static_cast<long long>(names.size()), names.at(number).toLocal8Bit().constData());
    std::fflush(stderr);
    isProgressShown = true;
}

/// A device that is full takes a part and only then fails.
void writeAll(QIODevice& device, const QByteArray& bytes)
{
    qint64 written = 1;
    for (qint64 done = 0; written > 0 && done < bytes.size(); done += written) {
        written = device.write(bytes.constData() + done, bytes.size() - done);
    }
}

} // namespace

QString shownName(const QString& name)
{
    return name == standardStream ? QStringLiteral("standard input") : name;
}

bool isSameFile(const QString& name, const QString& other)
{
    return name != standardStream && other != standardStream && QFileInfo::exists(name) &&
           QFileInfo(name) == QFileInfo(other);
}

void tell(const QString& line)
{
    clearProgress();
    std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData());
}

void tell(const QString& name, const CurveFileResult& result)
{
    const QString place =
        result.line > 0 ? QStringLiteral(":%1:%2").arg(result.line).arg(result.column) : QString();
    QString message = result.message;
    tell(QStringLiteral("%1%2: %3").arg(shownName(name), place, message.replace(u'\n', u' ')));
}

bool readCurve(const QString& name, CurveContent& content, CurveFormat* format)
{
    CurveFileResult result;
    if (name == standardStream) {
        QFile file;
        file.open(stdin, QIODevice::ReadOnly);
        QBuffer device;
        device.setData(file.readAll());
        device.open(QIODevice::ReadOnly);
        const CurveFormat found = curve_files::formatOfContent(device);
        if (format) {
            *format = found;
        }
        result = content.read(device, found);
    } else {
        result = content.readFile(name, format);
    }
    if (!result) {
        tell(name, result);
    }
    return static_cast<bool>(result);
}

bool writeCurve(const QString& name, const CurveContent& content, CurveFormat format)
{
    CurveFileResult result;
    if (name == standardStream) {
        QBuffer device;
        device.open(QIODevice::WriteOnly);
        result = content.write(device, format);
        if (result) {
            return writeBytes(name, device.data());
        }
    } else {
        result = content.writeFile(name, format);
    }
    if (!result) {
        tell(name, result);
    }
    return static_cast<bool>(result);
}

bool writeBytes(const QString& name, const QByteArray& bytes)
{
    QString reason;
    if (name == standardStream) {
        QFile file;
        if (!file.open(stdout, QIODevice::WriteOnly) || file.write(bytes) != bytes.size() ||
            !file.flush()) {
            reason = file.errorString();
        }
    } else {
        reason =
            curve_files::replaceFile(name, [&](QIODevice& device) { writeAll(device, bytes); });
    }
    if (!reason.isEmpty()) {
        tell(QStringLiteral("Cannot write %1: %2").arg(name, reason));
    }
    return reason.isEmpty();
}

int forEachFile(const QStringList& names, const std::function<bool(const QString& name)>& work)
{
    const bool showsProgress = names.size() > 1 && isatty(STDERR_FILENO) != 0;
    int status = allGood;
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (showsProgress) {
            showProgress(i, names);
        }
        const bool isDone = work(names.at(i));
        clearProgress();
        if (!isDone) {
            status = someFileBad;
        }
    }
    return status;
}
