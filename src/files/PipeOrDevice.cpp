#include "files/PipeOrDevice.h"

#include <QFileInfo>

namespace curve_files {

bool isPipeOrDevice(const QString& path)
{
    const QFileInfo target(path);
    return target.exists() && !target.isFile() && !target.isDir();
}

} // namespace curve_files
