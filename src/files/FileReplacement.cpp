#include "files/FileReplacement.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace curve_files {

namespace {

using Writer = std::function<void(QIODevice&)>;

QString tr(const char* text)
{
    return QCoreApplication::translate("FileReplacement", text);
}

/// All of the text is with the system: a write that fails while the buffer is emptied at the end
/// would go unnoticed by QSaveFile.
bool writeTo(QFileDevice& device, const Writer& write)
{
    write(device);
    return device.flush() && device.error() == QFileDevice::NoError;
}

bool writeAt(QFile& file, const qint64& position, const QByteArray& text)
{
    return file.seek(position) && file.write(text) == text.size();
}

/// What goes beyond the old end is written first: if there is no room for it, cutting it off
/// leaves the old file.
bool writeOver(QFile& file, const QByteArray& text)
{
    const qint64 oldSize = file.size();
    if (text.size() > oldSize && !writeAt(file, oldSize, text.mid(oldSize))) {
        file.resize(oldSize);
        return false;
    }
    return writeAt(file, 0, text.left(oldSize)) && file.resize(text.size());
}

bool writeInPlace(QFile& file, const Writer& write)
{
    QBuffer text;
    text.open(QIODevice::WriteOnly);
    write(text);
    const bool isNew = !file.exists();
    const auto presence = isNew ? QIODevice::NewOnly : QIODevice::ExistingOnly;
    if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered | presence)) {
        return false;
    }
    const bool isWritten = writeOver(file, text.data());
    if (!isWritten && isNew) {
        file.remove();
    }
    return isWritten;
}

} // namespace

QString replaceFile(const QString& path, const Writer& write)
{
    if (path.isEmpty()) {
        return tr("No file name");
    }
    const QFileInfo target(path);
    QFile direct(path);
    if (target.exists() && !target.isFile()) {
        const bool isWritten = direct.open(QIODevice::WriteOnly) && writeTo(direct, write);
        return isWritten ? QString() : direct.errorString();
    }
    QSaveFile replacement(path);
    if (replacement.open(QIODevice::WriteOnly)) {
        if (!writeTo(replacement, write)) {
            return replacement.errorString(); // which removes the second file
        }
        if (replacement.commit()) {
            return QString();
        }
        // A folder may take a second file and yet not let it go over one of another owner's.
        if (replacement.error() != QFileDevice::RenameError) {
            return replacement.errorString();
        }
    }
    return writeInPlace(direct, write) ? QString() : direct.errorString();
}

} // namespace curve_files
