#include "FilesChapter.h"

#include "DemoTools.h"
#include "HostWindow.h"

#include <curves/CurveFile.h>
#include <editor/CurveEditor.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>

#include <algorithm>

namespace {

QString name(const char* text)
{
    return QString::fromLatin1(text);
}

/// A curve is saved under a path in lower case, which shall lead to the same place.
QDir temporaryFolder()
{
    return QDir::tempPath() == QDir::tempPath().toLower() ? QDir::temp() : QDir(name("/tmp"));
}

/// The form in which the curve file keeps numbers.
QString sixDigits(double number)
{
    return QString::number(number, 'g', 6);
}

bool sameInFile(const PointInfo& left, const PointInfo& right)
{
    return sixDigits(left.time) == sixDigits(right.time) &&
           sixDigits(left.value) == sixDigits(right.value) && left.type == right.type;
}

bool sameInFile(const std::vector<PointInfo>& left, const std::vector<PointInfo>& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const PointInfo& a, const PointInfo& b) { return sameInFile(a, b); });
}

/// The keys of a curve file in XML.
std::vector<PointInfo> keysInFile(const QString& path)
{
    HostCurve read{QString(), QString(), QColor(), 0.0f, 0.0f};
    QString error;
    curve_editor::readCurveFile(path, &read.spline, &read.expression, error);
    return keysOf(read);
}

} // namespace

FilesChapter::FilesChapter(DemoTools& demoTools)
    : tools(demoTools)
    , scale(tools.curve(name("boat.scale")))
    , hue(tools.curve(name("sail.hue")))
    , lowerCaseFolder(temporaryFolder().filePath(
          name("evening-sail-%1").arg(QCoreApplication::applicationPid())))
    , opened(statesOf(tools.window.curves()))
{
    lowerCaseFolder.mkpath(name("."));
}

FilesChapter::~FilesChapter()
{
    lowerCaseFolder.removeRecursively();
}

bool FilesChapter::run()
{
    tools.editor.clearStack();
    tools.edit({scale.dotName()});
    return load() && save() && saveOlder() && loadOlder() && saveSeveral() && layPicture() &&
           clearPicture() && undoAll();
}

bool FilesChapter::load()
{
    const QString before = summary(scale);
    const QString path = QStringLiteral(HOST_CURVES_DIR "/lantern-light.xml");
    const bool answered = answerDialog(name("File/loadCurve"), path);
    return tools.log.finish(name("load a curve"), before + name(" -> ") + summary(scale),
                            answered && sameInFile(keysOf(scale), keysInFile(path)));
}

bool FilesChapter::save()
{
    const QString path = lowerCaseFolder.filePath(name("boat.scale.xml"));
    const bool answered = answerDialog(name("File/saveCurve"), path);
    const std::vector<PointInfo> saved = keysInFile(path);
    const QString copy = tools.log.folder().filePath(name("boat-scale.xml"));
    QFile::remove(copy);
    return tools.log.finish(
        name("save a curve"),
        name("%1 -> %2 with %3 keys").arg(summary(scale), path).arg(saved.size()),
        answered && sameInFile(saved, keysOf(scale)) && QFile::copy(path, copy));
}

/// A name that ends in ".crv" asks for the older format.
bool FilesChapter::saveOlder()
{
    const QString path = lowerCaseFolder.filePath(name("boat.scale.crv"));
    const bool answered = answerDialog(name("File/saveCurve"), path);
    return tools.log.finish(
        name("save in the older format"),
        name("%1 -> %2 with %3 bytes").arg(summary(scale), path).arg(QFileInfo(path).size()),
        answered && QFileInfo(path).size() > 0);
}

bool FilesChapter::loadOlder()
{
    const QString before = summary(hue);
    tools.edit({hue.dotName()});
    const bool answered =
        answerDialog(name("File/loadCurve"), lowerCaseFolder.filePath(name("boat.scale.crv")));
    return tools.log.finish(name("load the older format"), before + name(" -> ") + summary(hue),
                            answered && sameInFile(keysOf(hue), keysOf(scale)));
}

bool FilesChapter::saveSeveral()
{
    const QStringList curves = {scale.dotName(), hue.dotName()};
    tools.edit(curves);
    const bool answered = answerDialog(name("File/saveCurve"), tools.log.folder().absolutePath());
    bool saved = true;
    for (const QString& curve : curves) {
        const QString path = tools.log.folder().filePath(curve + name(".xml"));
        saved = saved && sameInFile(keysInFile(path), keysOf(tools.curve(curve)));
    }
    return tools.log.finish(name("save several curves"),
                            curves.join(name(", ")) + name(" -> ") +
                                tools.log.folder().absolutePath(),
                            answered && saved);
}

bool FilesChapter::layPicture()
{
    const double before = brightness();
    const QString path = lowerCaseFolder.filePath(name("scene.png"));
    const bool grabbed = tools.window.grabStage().save(path);
    const bool answered = answerDialog(name("View/loadImage"), path);
    return tools.log.finish(name("lay a picture behind the curves"),
                            name("brightness of the canvas %1 -> %2")
                                .arg(before, 0, 'f', 1)
                                .arg(brightness(), 0, 'f', 1),
                            grabbed && answered && brightness() > before + 10.0);
}

bool FilesChapter::clearPicture()
{
    const double before = brightness();
    const bool chosen = tools.hand.choose(name("View/clearImage"));
    return tools.log.finish(name("clear the picture"),
                            name("brightness of the canvas %1 -> %2")
                                .arg(before, 0, 'f', 1)
                                .arg(brightness(), 0, 'f', 1),
                            chosen && brightness() < before - 10.0);
}

bool FilesChapter::undoAll()
{
    const QString before = summary(scale) + name(", ") + summary(hue);
    const QStringList steps = tools.undo();
    return tools.log.finish(
        name("undo the loads"),
        name("%1 -> %2, %3 (%4)").arg(before, summary(scale), summary(hue), steps.join(name(", "))),
        statesOf(tools.window.curves()) == opened);
}

/// Chooses an entry and answers its file dialog with a path.
bool FilesChapter::answerDialog(const QString& entry, const QString& path)
{
    const auto answer = [&](QWidget& window) {
        if (auto* const dialog = qobject_cast<QFileDialog*>(&window)) {
            if (path.endsWith(name(".crv"))) {
                dialog->selectNameFilter(dialog->nameFilters().last());
            }
            // Set at once: typed letters would open the list of completions.
            auto* const line = dialog->findChild<QLineEdit*>(name("fileNameEdit"));
            line->setText(path);
            tools.log.picture(dialog->windowTitle().toLower().remove(QLatin1Char('.')));
            pressKey(*line, Qt::Key_Return);
        }
    };
    return tools.guest.during([&] { tools.hand.choose(entry); }, {answer});
}

/// The mean of the canvas's pixels, 0 to 255.
double FilesChapter::brightness() const
{
    const QImage image = CanvasMouse::canvasOf(tools.editor).grab().toImage();
    double sum = 0.0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            sum += qGray(image.pixel(x, y));
        }
    }
    return sum / (std::max(image.width(), 1) * std::max(image.height(), 1));
}
