#include "KeysChapter.h"

#include "CurveState.h"
#include "DemoTools.h"
#include "HostWindow.h"
#include "SceneCurves.h"
#include "TimeLine.h"

#include <editor/CurveEditor.h>

#include <QAction>

#include <cmath>

namespace {

constexpr unsigned draggedKey = 2;

QString keyText(const PointInfo& key)
{
    return QStringLiteral("key %1 at %2 s, %3")
        .arg(draggedKey + 1)
        .arg(key.time, 0, 'f', 3)
        .arg(key.value, 0, 'f', 2);
}

} // namespace

KeysChapter::KeysChapter(DemoTools& demoTools)
    : tools(demoTools)
    , curve(tools.curve(QStringLiteral("boat.position x")))
{}

bool KeysChapter::run()
{
    return openCurves() && selectCurve() && dragKey() && dragHandle() && undoAll() && redoAll() &&
           moveTime();
}

bool KeysChapter::openCurves()
{
    const QStringList names = tools.window.curves().dotNames();
    tools.edit(names);
    tools.window.timeLine()->setTime(4.0);
    return tools.log.finish(QStringLiteral("open"),
                            QStringLiteral("curves selected: %1 of %2, %3")
                                .arg(tools.editor.getSelection().size())
                                .arg(names.size())
                                .arg(names.join(QStringLiteral(", "))),
                            static_cast<std::size_t>(names.size()) >= sceneCurves().size() &&
                                tools.editor.getSelection() == names);
}

bool KeysChapter::selectCurve()
{
    const QString before = QString::number(tools.editor.getSelection().size());
    const QString name = curve.dotName();
    tools.edit({name});
    opened = keysOf(curve);
    return tools.log.finish(QStringLiteral("select"),
                            QStringLiteral("selection: %1 curves -> %2, with %3 keys")
                                .arg(before, name)
                                .arg(opened.size()),
                            tools.editor.getSelection() == QStringList(name) &&
                                opened.size() > draggedKey + 1);
}

bool KeysChapter::dragKey()
{
    const PointInfo before = opened.at(draggedKey);
    const QPoint to = tools.mouse.pixelOf(before.time + 0.9, before.value - 24.0);
    tools.mouse.drag(tools.mouse.pixelOf(before.time, before.value), to);

    // A key that is dragged alone lands under the mouse.
    const QPointF target = tools.mouse.worldOf(to);
    const PointInfo after = keysOf(curve).at(draggedKey);
    return tools.log.finish(
        QStringLiteral("drag a key"), keyText(before) + QStringLiteral(" -> ") + keyText(after),
        std::abs(after.time - target.x()) < 1e-6 && std::abs(after.value - target.y()) < 1e-6 &&
            tools.window.undoMenuAction()->isEnabled());
}

bool KeysChapter::dragHandle()
{
    const PointInfo before = keysOf(curve).at(draggedKey);
    const QPoint to = tools.mouse.pixelOf(before.time, before.value) + QPoint(60, 40);
    tools.mouse.drag(tools.mouse.rightHandle(curve.spline, draggedKey), to);

    // The handle points to the mouse: the slope from the key to it, but for a thousandth that
    // keeps an upright handle finite.
    edited = keysOf(curve);
    const PointInfo after = edited.at(draggedKey);
    const QPointF target = tools.mouse.worldOf(to);
    const double slope = (target.y() - before.value) / (target.x() - before.time);
    return tools.log.finish(
        QStringLiteral("drag a handle"),
        QStringLiteral("outgoing slope %1 -> %2 per second (the mouse is at %3)")
            .arg(before.bezier.tangentRight, 0, 'f', 2)
            .arg(after.bezier.tangentRight, 0, 'f', 2)
            .arg(slope, 0, 'f', 2),
        after.bezier.tangentRight < 0.0 &&
            std::abs(after.bezier.tangentRight - slope) < 0.05 * std::abs(slope) &&
            after.time == before.time && after.value == before.value);
}

bool KeysChapter::undoAll()
{
    const QStringList steps = tools.undo();
    undone = static_cast<int>(steps.size());
    return tools.log.finish(QStringLiteral("undo"),
                            QStringLiteral("%1 -> %2 (%3)")
                                .arg(keyText(edited.at(draggedKey)),
                                     keyText(keysOf(curve).at(draggedKey)),
                                     steps.join(QStringLiteral(", "))),
                            undone >= 2 && sameKeys(keysOf(curve), opened));
}

bool KeysChapter::redoAll()
{
    const QStringList steps = tools.redo();
    return tools.log.finish(QStringLiteral("redo"),
                            QStringLiteral("%1 -> %2 (%3)")
                                .arg(keyText(opened.at(draggedKey)),
                                     keyText(keysOf(curve).at(draggedKey)),
                                     steps.join(QStringLiteral(", "))),
                            steps.size() == undone && sameKeys(keysOf(curve), edited));
}

bool KeysChapter::moveTime()
{
    const SceneState before = sceneAt(tools.window.curves(), 4.0, HostWindow::fps);
    const SceneState after = sceneAt(tools.window.curves(), 8.0, HostWindow::fps);
    tools.edit(tools.window.curves().dotNames());
    tools.window.timeLine()->setTime(8.0);
    const bool asSaid = tools.log.finish(
        QStringLiteral("move the time line"),
        QStringLiteral("4 s -> 8 s: boat at %1 % -> %2 %, gull at %3 % -> %4 %, "
                       "lantern %5 % -> %6 %")
            .arg(before.boatX, 0, 'f', 1)
            .arg(after.boatX, 0, 'f', 1)
            .arg(before.gullX, 0, 'f', 1)
            .arg(after.gullX, 0, 'f', 1)
            .arg(before.lantern, 0, 'f', 0)
            .arg(after.lantern, 0, 'f', 0),
        before.lantern <= 0.0 && after.lantern > 0.0 && after.boatX > before.boatX);
    tools.window.timeLine()->setTime(4.0);
    tools.undo();
    return asSaid;
}
