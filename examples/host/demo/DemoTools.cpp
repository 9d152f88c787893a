#include "DemoTools.h"

#include "HostWindow.h"

#include <editor/CurveEditor.h>

#include <QAction>

namespace {

constexpr CanvasRange visible = {-0.5, 10.5, -40.0, 130.0};

QStringList repeat(QAction& action, int times)
{
    QStringList texts;
    while (action.isEnabled() && texts.size() < times) {
        texts.append(action.text().remove(QLatin1Char('&')));
        action.trigger();
    }
    return texts;
}

} // namespace

DemoTools::DemoTools(HostWindow& hostWindow, const QDir& folder)
    : window(hostWindow)
    , editor(*hostWindow.curveEditor())
    , log(hostWindow, folder)
    , hand(editor)
    , mouse(CanvasMouse::canvasOf(editor), visible)
{}

HostCurve& DemoTools::curve(const QString& dotName) const
{
    return *window.curves().find(dotName);
}

void DemoTools::edit(const QStringList& dotNames) const
{
    editor.setTimeRange(visible.minX, visible.maxX);
    editor.setMinValue(visible.minY);
    editor.setMaxValue(visible.maxY);
    editor.selectNodes(dotNames);
}

QStringList DemoTools::undo(int steps) const
{
    return repeat(*window.undoMenuAction(), steps);
}

QStringList DemoTools::redo(int steps) const
{
    return repeat(*window.redoMenuAction(), steps);
}
