#pragma once

#include <QString>

class QWidget;

namespace curve_editor {

/// Asks the user for files. Each answer is null after a cancel, and also when the host has deleted
/// `parent` meanwhile, and this object with it.
class CurveFileDialogs
{
public:
    /// The folder in which the dialogs of curve files open, put before the names of files as it is.
    void setCurrentDir(const QString& folder);
    /// The folder of a chosen file becomes the current one.
    void rememberDir(const QString& path);

    QString curveToOpen(QWidget* parent) const;
    /// `name` is that of the file proposed, without extension.
    QString curveToSave(QWidget* parent, const QString& name) const;
    QString folderToSaveIn(QWidget* parent) const;
    static QString imageToOpen(QWidget* parent);

private:
    QString currentDir;
};

} // namespace curve_editor
