// Loading and saving: curve files and the picture behind the curves.

#include "canvas/CanvasBackground.h"
#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/CommandLoadCurve.h"
#include "curves/CurveNodeBase.h"
#include "curves/Problem.h"
#include "editor/CurveEditor.h"
#include "editor/CurveEditorPrivate.h"
#include "files/DeviceStreamBuffer.h"
#include "files/FileReplacement.h"
#include "files/PipeOrDevice.h"

#include <QFile>
#include <QPointer>

#include <memory>
#include <ostream>
#include <utility>

using curve_files::DeviceStreamBuffer;
using curve_files::isPipeOrDevice;
using curve_files::replaceFile;

namespace {

/// The typed extension decides on the format. Of ".xml" only the spelling in lower case counts,
/// though the file is written in lower case in any event: A.XML becomes a.xml.xml.
void saveCurve(CanvasFunctionBase& canvas, const QString& path)
{
    auto* const curve = dynamic_cast<CurveNodeBase*>(canvas.editingCurves().value(0));
    if (!curve) {
        return;
    }
    const QString lower = path.toLower();
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

} // namespace

void CurveEditor::setCurrentDir(const QString& folder)
{
    d->files.setCurrentDir(folder);
}

void CurveEditor::loadFile()
{
    const QString path = d->files.curveToOpen(this);
    if (path.isNull()) {
        return;
    }
    d->files.rememberDir(path);
    const QPointer<CurveEditor> self(this);
    d->manager.doCommand(new curve_editor::CommandLoadCurve(this, path));
    if (self) { // the box of an error runs an event loop
        refreshCommandLine();
        refreshEditor();
    }
}

void CurveEditor::saveFile()
{
    if (d->canvas().editingCurves().size() > 1) {
        const QString folder = d->files.folderToSaveIn(this);
        if (!folder.isNull()) {
            d->canvas().saveCurvesXml(folder);
        }
        return;
    }
    const QString path = d->files.curveToSave(this, d->canvas().firstCurveName());
    if (!path.isNull()) {
        d->files.rememberDir(path);
        saveCurve(d->canvas(), path);
    }
}

void CurveEditor::loadImage()
{
    const QString path = curve_editor::CurveFileDialogs::imageToOpen(this);
    QFile file(path);
    if (path.isEmpty() || isPipeOrDevice(path) || !file.open(QIODevice::ReadOnly)) {
        return;
    }
    d->canvas().setBackground(nullptr);
    auto picture = std::make_unique<CanvasBackground>();
    if (!picture->image.load(path)) {
        const QPointer<CurveEditor> self(this);
        showBox(curve_editor::Problem{curve_editor::Problem::warning, QStringLiteral("Error"),
                                      QStringLiteral("Unable to load image file")});
        if (!self) {
            return;
        }
    }
    d->canvas().setBackground(std::move(picture));
    d->repaintAll();
}

void CurveEditor::clearImage()
{
    d->canvas().setBackground(nullptr);
    d->repaintAll();
}
