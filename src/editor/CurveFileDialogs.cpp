#include "editor/CurveFileDialogs.h"

#include "editor/CurveEditor.h"
#include "files/CurveFormat.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

namespace curve_editor {

namespace {

const char* const curveFilter = "Quondrix XML Curve Files (*.xml);;Quondrix Curve Files (*.crv)";

/// Runs the dialog and frees it. Null after a cancel, and also when the dialog's parent was
/// deleted meanwhile: the toolkit's own static calls do not survive that.
QString pathChosenIn(QFileDialog* dialog)
{
    const QPointer<QFileDialog> living(dialog);
    dialog->setSupportedSchemes({QStringLiteral("file")});
    const bool isAccepted = dialog->exec() == QDialog::Accepted;
    QString path = isAccepted && living ? living->selectedFiles().value(0) : QString();
    delete living.data();
    return path;
}

QString fileToOpen(QWidget* parent, const QString& caption, const QString& folder,
                   const QString& filter)
{
    auto* const dialog = new QFileDialog(parent, caption, folder, filter);
    dialog->setFileMode(QFileDialog::ExistingFile);
    return pathChosenIn(dialog);
}

QString fileToSave(QWidget* parent, const QString& caption, const QString& proposal,
                   const QString& filter)
{
    auto* const dialog = new QFileDialog(parent, caption, proposal, filter);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->selectFile(QFileInfo(proposal).fileName());
    return pathChosenIn(dialog);
}

} // namespace

void CurveFileDialogs::setCurrentDir(const QString& folder)
{
    currentDir = folder;
}

/// Up to and including the last "/", which is the only separator that the dialogs give.
void CurveFileDialogs::rememberDir(const QString& path)
{
    const QByteArray localPath = path.toLocal8Bit();
    const qsizetype slash = localPath.lastIndexOf('/');
    if (slash >= 0) {
        currentDir = QString::fromLocal8Bit(localPath.left(slash + 1));
    }
}

QString CurveFileDialogs::curveToOpen(QWidget* parent) const
{
    return fileToOpen(parent, CurveEditor::tr("Open File"), currentDir, curveFilter);
}

QString CurveFileDialogs::curveToSave(QWidget* parent, const QString& name) const
{
    const QString proposal =
        QStringLiteral("%1/%2.xml").arg(currentDir, curve_files::fileNameOfCurve(name));
    return fileToSave(parent, CurveEditor::tr("Save Curve as..."), proposal, curveFilter);
}

QString CurveFileDialogs::folderToSaveIn(QWidget* parent) const
{
    auto* const dialog = new QFileDialog(parent, CurveEditor::tr("Save Curves as XML"), currentDir);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    return pathChosenIn(dialog);
}

QString CurveFileDialogs::imageToOpen(QWidget* parent)
{
    return fileToOpen(parent, QStringLiteral("Open Image"), QString(),
                      QStringLiteral("Images (*.png *.bmp)"));
}

} // namespace curve_editor
