#pragma once

class QString;

namespace curve_editor {

/// Such a thing is never read: opening a pipe waits for somebody to write to it, and what a device
/// gives may have no end. False for a link to a file, for a folder, and where there is nothing.
bool isPipeOrDevice(const QString& path);

} // namespace curve_editor
