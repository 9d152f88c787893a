#include "Demonstration.h"

#include "HostWindow.h"
#include "SceneCurves.h"
#include "TimeLine.h"

#include <commands/CurveCommand.h>
#include <curves/CurveFile.h>
#include <editor/CurveEditor.h>

#include <QAction>
#include <QApplication>
#include <QPixmap>
#include <QTextStream>

#include <algorithm>
#include <cmath>

namespace {

constexpr CanvasRange visible = {-0.5, 10.5, -40.0, 130.0};
constexpr unsigned draggedKey = 2;

bool sameKey(const PointInfo& a, const PointInfo& b)
{
    return a.time == b.time && a.value == b.value && a.type == b.type &&
           a.unifiedTangents == b.unifiedTangents && a.bezier.tangentLeft == b.bezier.tangentLeft &&
           a.bezier.tangentRight == b.bezier.tangentRight && a.tcb.tension == b.tcb.tension &&
           a.tcb.continuity == b.tcb.continuity && a.tcb.bias == b.tcb.bias &&
           a.tcb.easeTo == b.tcb.easeTo && a.tcb.easeFrom == b.tcb.easeFrom;
}

bool sameKeys(const std::vector<PointInfo>& a, const std::vector<PointInfo>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), sameKey);
}

/// The form in which the curve file keeps numbers.
QString sixDigits(double number)
{
    return QString::number(number, 'g', 6);
}

QString withoutMnemonic(const QAction* action)
{
    return action->text().remove(QLatin1Char('&'));
}

} // namespace

Demonstration::Demonstration(HostWindow& hostWindow, const QString& path)
    : window(hostWindow)
    , editor(hostWindow.curveEditor())
    , folder(path)
{}

bool Demonstration::run()
{
    window.show();
    QApplication::processEvents();
    return openCurves() && selectCurve() && dragKey() && dragHandle() && undoAll() && redoAll() &&
           save() && moveTime();
}

bool Demonstration::openCurves()
{
    const QStringList names = window.curves().dotNames();
    editor->setTimeRange(visible.minX, visible.maxX);
    editor->setMinValue(visible.minY);
    editor->setMaxValue(visible.maxY);
    editor->selectNodes(names);
    window.timeLine()->setTime(4.0);
    QWidget* canvas = CanvasMouse::findCanvas(editor);
    if (!folder.mkpath(QStringLiteral(".")) || !canvas) {
        return finish(QStringLiteral("open"), QStringLiteral("no folder or no canvas"), false);
    }
    mouse = std::make_unique<CanvasMouse>(canvas, visible);
    return finish(QStringLiteral("open"),
                  QStringLiteral("curves selected: %1 of %2, %3")
                      .arg(editor->getSelection().size())
                      .arg(names.size())
                      .arg(names.join(QStringLiteral(", "))),
                  static_cast<std::size_t>(names.size()) >= sceneCurves().size() &&
                      editor->getSelection() == names);
}

bool Demonstration::selectCurve()
{
    const QString before = QString::number(editor->getSelection().size());
    const QString name = QStringLiteral("boat.position x");
    curve = window.curves().find(name);
    editor->selectNodes(name);
    if (!curve || curve->spline.getControlPointsNumber() <= draggedKey + 1) {
        return finish(QStringLiteral("select"), QStringLiteral("no key to drag"), false);
    }
    opened = keys();
    return finish(QStringLiteral("select"),
                  QStringLiteral("selection: %1 curves -> %2, with %3 keys")
                      .arg(before, name)
                      .arg(opened.size()),
                  editor->getSelection() == QStringList(name));
}

bool Demonstration::dragKey()
{
    const PointInfo before = opened.at(draggedKey);
    const QPoint from = mouse->pixelOf(before.time, before.value);
    const QPoint to = mouse->pixelOf(before.time + 0.9, before.value - 24.0);
    mouse->drag(from, to);

    // A key that is dragged alone lands under the mouse.
    const QPointF target = mouse->worldOf(to);
    const PointInfo after = keys().at(draggedKey);
    return finish(
        QStringLiteral("drag a key"), keyText(before) + QStringLiteral(" -> ") + keyText(after),
        std::abs(after.time - target.x()) < 1e-6 && std::abs(after.value - target.y()) < 1e-6 &&
            window.undoMenuAction()->isEnabled());
}

bool Demonstration::dragHandle()
{
    const PointInfo before = keys().at(draggedKey);
    const QPoint key = mouse->pixelOf(before.time, before.value);
    const QPoint from = mouse->rightHandle(curve->spline, draggedKey);
    const QPoint to = key + QPoint(60, 40);
    mouse->drag(from, to);

    // The handle points to the mouse: the slope from the key to it, but for a thousandth that
    // keeps an upright handle finite.
    edited = keys();
    const PointInfo after = edited.at(draggedKey);
    const QPointF target = mouse->worldOf(to);
    const double slope = (target.y() - before.value) / (target.x() - before.time);
    return finish(QStringLiteral("drag a handle"),
                  QStringLiteral("outgoing slope %1 -> %2 per second (the mouse is at %3)")
                      .arg(before.bezier.tangentRight, 0, 'f', 2)
                      .arg(after.bezier.tangentRight, 0, 'f', 2)
                      .arg(slope, 0, 'f', 2),
                  after.bezier.tangentRight < 0.0 &&
                      std::abs(after.bezier.tangentRight - slope) < 0.05 * std::abs(slope) &&
                      after.time == before.time && after.value == before.value);
}

bool Demonstration::undoAll()
{
    QStringList steps;
    while (window.undoMenuAction()->isEnabled() && undone < 100) {
        steps.append(withoutMnemonic(window.undoMenuAction()));
        window.undoMenuAction()->trigger();
        ++undone;
    }
    return finish(QStringLiteral("undo"),
                  keyText(edited.at(draggedKey)) + QStringLiteral(" -> ") +
                      keyText(keys().at(draggedKey)) + QStringLiteral(" (") +
                      steps.join(QStringLiteral(", ")) + QLatin1Char(')'),
                  undone >= 2 && sameKeys(keys(), opened));
}

bool Demonstration::redoAll()
{
    QStringList steps;
    while (window.redoMenuAction()->isEnabled() && steps.size() < undone) {
        steps.append(withoutMnemonic(window.redoMenuAction()));
        window.redoMenuAction()->trigger();
    }
    return finish(QStringLiteral("redo"),
                  keyText(opened.at(draggedKey)) + QStringLiteral(" -> ") +
                      keyText(keys().at(draggedKey)) + QStringLiteral(" (") +
                      steps.join(QStringLiteral(", ")) + QLatin1Char(')'),
                  steps.size() == undone && sameKeys(keys(), edited));
}

bool Demonstration::save()
{
    const QString path = folder.filePath(QStringLiteral("boat-position-x.xml"));
    QString error;
    HostCurve again(curve->node, curve->name, curve->color, curve->minimum, curve->maximum);
    const bool passed =
        curve_editor::writeCurveFile(path, &curve->spline, curve->expression, error) &&
        curve_editor::readCurveFile(path, &again.spline, &again.expression, error);
    const unsigned count = again.spline.getControlPointsNumber();
    bool same = passed && count == edited.size();
    for (unsigned index = 0; same && index < count; ++index) {
        same = sixDigits(again.spline[index]->time) == sixDigits(edited.at(index).time) &&
               sixDigits(again.spline[index]->value) == sixDigits(edited.at(index).value);
    }
    return finish(QStringLiteral("save"),
                  passed ? QStringLiteral("%1 keys -> %2 -> %3 keys read back")
                               .arg(QString::number(edited.size()), path, QString::number(count))
                         : error,
                  same);
}

bool Demonstration::moveTime()
{
    const SceneState before = sceneAt(window.curves(), 4.0, HostWindow::fps);
    const SceneState after = sceneAt(window.curves(), 8.0, HostWindow::fps);
    editor->selectNodes(window.curves().dotNames());
    window.timeLine()->setTime(8.0);
    return finish(QStringLiteral("move the time line"),
                  QStringLiteral("4 s -> 8 s: boat at %1 % -> %2 %, gull at %3 % -> %4 %, "
                                 "lantern %5 % -> %6 %")
                      .arg(before.boatX, 0, 'f', 1)
                      .arg(after.boatX, 0, 'f', 1)
                      .arg(before.gullX, 0, 'f', 1)
                      .arg(after.gullX, 0, 'f', 1)
                      .arg(before.lantern, 0, 'f', 0)
                      .arg(after.lantern, 0, 'f', 0),
                  before.lantern <= 0.0 && after.lantern > 0.0 && after.boatX > before.boatX);
}

/// Prints the step and leaves its picture.
bool Demonstration::finish(const QString& step, const QString& text, bool asSaid)
{
    QTextStream(stdout) << step << ": " << text << Qt::endl;
    QApplication::processEvents();
    const QString name = QStringLiteral("%1-%2.png")
                             .arg(++pictures, 2, 10, QLatin1Char('0'))
                             .arg(QString(step).replace(QLatin1Char(' '), QLatin1Char('-')));
    const bool pictured = window.grab().save(folder.filePath(name));
    if (!pictured) {
        QTextStream(stderr) << "No picture could be written: " << folder.filePath(name) << Qt::endl;
    }
    if (!asSaid) {
        QTextStream(stderr) << "FAILED: " << step << Qt::endl;
    }
    return asSaid && pictured;
}

std::vector<PointInfo> Demonstration::keys() const
{
    std::vector<PointInfo> copies;
    for (unsigned index = 0; index < curve->spline.getControlPointsNumber(); ++index) {
        copies.push_back(*curve->spline[index]);
    }
    return copies;
}

QString Demonstration::keyText(const PointInfo& key) const
{
    return QStringLiteral("key %1 at %2 s, %3")
        .arg(draggedKey + 1)
        .arg(key.time, 0, 'f', 3)
        .arg(key.value, 0, 'f', 2);
}
