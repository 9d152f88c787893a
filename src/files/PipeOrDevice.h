#pragma once

#include "zk_curve_files_export.h"

class QString;

namespace curve_files {

/// Such a thing is never read: opening a pipe waits for somebody to write to it, and what a device
/// gives may have no end. False for a link to a file, for a folder, and where there is nothing.
ZK_CURVE_FILES_EXPORT bool isPipeOrDevice(const QString& path);

} // namespace curve_files
