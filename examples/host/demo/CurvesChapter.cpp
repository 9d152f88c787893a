#include "CurvesChapter.h"

#include "DemoTools.h"
#include "HostWindow.h"

#include <editor/CurveEditor.h>

#include <QMenu>

CurvesChapter::CurvesChapter(DemoTools& demoTools)
    : tools(demoTools)
    , opened(statesOf(tools.window.curves()))
{}

bool CurvesChapter::run()
{
    tools.editor.clearStack();
    return reset() && deleteCurve() && removeFromTree() && undoAll();
}

bool CurvesChapter::reset()
{
    const HostCurve& curve = tools.curve(QStringLiteral("boat.rotation"));
    const QString before = summary(curve);
    tools.edit({curve.dotName()});
    const bool chosen = tools.hand.choose(QStringLiteral("File/resetSelectedCurves"));
    return tools.log.finish(
        QStringLiteral("reset a curve"),
        QStringLiteral("%1: %2 -> %3").arg(curve.dotName(), before, summary(curve)),
        chosen && keysOf(curve).empty());
}

/// A host's own way: the curve loses keys and expression, and leaves the canvas.
bool CurvesChapter::deleteCurve()
{
    HostCurve& curve = tools.curve(QStringLiteral("boat.position y"));
    const QString before = summary(curve);
    tools.edit({curve.dotName()});
    tools.editor.deleteCurveAndExp(curve.node, curve.name, &curve.expression);
    return tools.log.finish(
        QStringLiteral("delete a curve"),
        QStringLiteral("%1: %2 -> %3").arg(curve.dotName(), before, summary(curve)),
        keysOf(curve).empty() && !curve.expression);
}

bool CurvesChapter::removeFromTree()
{
    const QString name = QStringLiteral("lantern.light");
    tools.edit({name});
    const bool known = tools.editor.curveFromDotName(name) != nullptr;
    const bool answered = tools.guest.during(
        [&] { tools.hand.openTreeMenu(name); }, {[this](QWidget& popup) {
            tools.log.picture(QStringLiteral("the menu of the tree"));
            if (auto* const menu = qobject_cast<QMenu*>(&popup)) {
                tools.hand.chooseOpen(*menu, QStringLiteral("Remove from editing list"));
            }
        }});
    const bool left = tools.editor.curveFromDotName(name) == nullptr;
    return tools.log.finish(
        QStringLiteral("remove from the tree"),
        QStringLiteral("%1: %2 -> %3")
            .arg(name, known ? QStringLiteral("in the tree") : QStringLiteral("not in the tree"),
                 left ? QStringLiteral("not in the tree") : QStringLiteral("in the tree")),
        answered && known && left);
}

bool CurvesChapter::undoAll()
{
    const QStringList steps = tools.undo();
    const bool back = tools.editor.curveFromDotName(QStringLiteral("lantern.light")) &&
                      tools.editor.curveFromDotName(QStringLiteral("boat.position y"));
    return tools.log.finish(QStringLiteral("undo reset and removal"),
                            QStringLiteral("boat.rotation: %1, boat.position y: %2 (%3)")
                                .arg(summary(tools.curve(QStringLiteral("boat.rotation"))),
                                     summary(tools.curve(QStringLiteral("boat.position y"))),
                                     steps.join(QStringLiteral(", "))),
                            back && statesOf(tools.window.curves()) == opened);
}
