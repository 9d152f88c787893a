#include "CurveFiles.h"

#include <QBuffer>
#include <QFile>

#include <cstdio>
#include <unistd.h>

using curve_files::CurveContent;
using curve_files::CurveFileResult;
using curve_files::CurveFormat;

namespace {

const QString standardStream = QStringLiteral("-");

void clearLine()
{
    std::fputs("\r\x1b[K", stderr);
}

} // namespace

QString shownName(const QString& name)
{
    return name == standardStream ? QStringLiteral("standard input") : name;
}

void tell(const QString& line)
{
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
    QFile file(name);
    const bool isOpen = name == standardStream ? file.open(stdout, QIODevice::WriteOnly)
                                               : file.open(QIODevice::WriteOnly);
    if (isOpen && file.write(bytes) == bytes.size() && file.flush()) {
        return true;
    }
    tell(QStringLiteral("Cannot write %1: %2").arg(name, file.errorString()));
    return false;
}

int forEachFile(const QStringList& names, const std::function<bool(const QString& name)>& work)
{
    const bool showsProgress = names.size() > 1 && isatty(STDERR_FILENO) != 0;
    int status = allGood;
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (showsProgress) {
            clearLine();
            std::fprintf(stderr, "%lld of %lld: %s", static_cast<long long>(i + 1),
                         static_cast<long long>(names.size()),
                         names.at(i).toLocal8Bit().constData());
            std::fflush(stderr);
            clearLine();
        }
        if (!work(names.at(i))) {
            status = someFileBad;
        }
    }
    return status;
}
