#pragma once

#include "zk_curve_files_export.h"

#include <functional>

class QIODevice;
class QString;

namespace curve_files {

/// Writes a file anew, so that the old one outlives a failure: the text goes to a second file
/// beside it, which takes its place only when all of it is written. Where the folder does not
/// allow that the old one is written over, its first byte only when there is room for the last.
/// What is no plain file, such as a device, is written to as it is.
///
/// `write` puts the text to the device, which it neither closes nor owns. Returns what went wrong,
/// an empty text on success.
ZK_CURVE_FILES_EXPORT QString replaceFile(const QString& path,
                                          const std::function<void(QIODevice&)>& write);

} // namespace curve_files
