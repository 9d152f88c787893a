// Loading and saving: curve files and the picture behind the curves.

#include "canvas/CanvasBackground.h"
#include "canvas/FunctionEditor.h"
#include "commands/CommandLoadCurve.h"
#include "curves/CurveNodeBase.h"
#include "curves/DeviceStreamBuffer.h"
#include "curves/FileReplacement.h"
#include "curves/PipeOrDevice.h"
#include "curves/Problem.h"
#include "editor/CurveEditor.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

#include <memory>
#include <ostream>

using curve_editor::DeviceStreamBuffer;
using curve_editor::isPipeOrDevice;
using curve_editor::replaceFile;

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

QString folderToSaveIn(QWidget* parent, const QString& caption, const QString& folder)
{
    auto* const dialog = new QFileDialog(parent, caption, folder);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    return pathChosenIn(dialog);
}

} // namespace

void CurveEditor::setCurrentDir(const QString& folder)
{
    currentDir = folder;
}

/// Up to and including the last "/", which is the only separator that the dialogs give.
void CurveEditor::rememberDir(const QString& path)
{
    const QByteArray localPath = path.toLocal8Bit();
    const qsizetype slash = localPath.lastIndexOf('/');
    if (slash >= 0) {
        currentDir = QString::fromLocal8Bit(localPath.left(slash + 1));
    }
}

void CurveEditor::loadFile()
{
    const QString path = fileToOpen(this, tr("Open File"), currentDir, curveFilter);
    if (path.isNull()) {
        return;
    }
    rememberDir(path);
    const QPointer<CurveEditor> self(this);
    manager.doCommand(new curve_editor::CommandLoadCurve(this, path));
    if (self) { // the box of an error runs an event loop
        refreshCommandLine();
        refreshEditor();
    }
}

void CurveEditor::saveFile()
{
    if (functionEditor->canvas().editingCurves().size() > 1) {
        saveCurvesToFolder();
    } else {
        saveCurve();
    }
}

void CurveEditor::saveCurvesToFolder()
{
    const QString folder = folderToSaveIn(this, tr("Save Curves as XML"), currentDir);
    if (!folder.isNull()) {
        functionEditor->canvas().saveCurvesXml(folder);
    }
}

/// The typed extension decides on the format. Of ".xml" only the spelling in lower case counts,
/// though the file is written in lower case in any event: A.XML becomes a.xml.xml.
void CurveEditor::saveCurve()
{
    const QString proposal =
        QStringLiteral("%1/%2.xml").arg(currentDir, functionEditor->canvas().firstCurveName());
    const QString path = fileToSave(this, tr("Save Curve as..."), proposal, curveFilter);
    if (path.isNull()) {
        return;
    }
    rememberDir(path);
    const QString lower = path.toLower();
    CanvasFunctionBase& canvas = functionEditor->canvas();
    auto* const curve = dynamic_cast<CurveNodeBase*>(canvas.editingCurves().value(0));
    if (!curve) {
        return;
    }
    if (lower.endsWith(QLatin1String(".crv"))) {
        replaceFile(lower, [&canvas](QIODevice& file) {
            DeviceStreamBuffer buffer(file);
            std::ostream stream(&buffer);
            canvas.saveCrvFile(stream);
        });
    } else {
        const bool isComplete = path.endsWith(QLatin1String(".xml"));
        curve->saveXML(isComplete ? lower : lower + QLatin1String(".xml"));
    }
}

void CurveEditor::loadImage()
{
    const QString path = fileToOpen(this, QStringLiteral("Open Image"), QString(),
                                    QStringLiteral("Images (*.png *.bmp)"));
    QFile file(path);
    if (path.isEmpty() || isPipeOrDevice(path) || !file.open(QIODevice::ReadOnly)) {
        return;
    }
    functionEditor->canvas().setBackground(nullptr);
    auto picture = std::make_unique<CanvasBackground>();
    if (!picture->image.load(path)) {
        const QPointer<CurveEditor> self(this);
        showBox(curve_editor::Problem{curve_editor::Problem::warning, QStringLiteral("Error"),
                                      QStringLiteral("Unable to load image file")});
        if (!self) {
            return;
        }
    }
    functionEditor->canvas().setBackground(picture.release());
    repaintAll();
}

void CurveEditor::clearImage()
{
    functionEditor->canvas().setBackground(nullptr);
    repaintAll();
}
