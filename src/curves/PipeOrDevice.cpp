#include "curves/PipeOrDevice.h"

#include <QFileInfo>

namespace curve_editor {

bool isPipeOrDevice(const QString& path)
{
    const QFileInfo target(path);
    return target.exists() && !target.isFile() && !target.isDir();
}

} // namespace curve_editor
