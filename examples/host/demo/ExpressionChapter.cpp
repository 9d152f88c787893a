#include "ExpressionChapter.h"

#include "DemoTools.h"
#include "HostWindow.h"

#include <editor/CurveEditor.h>

#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>

#include <algorithm>
#include <cmath>

namespace {

constexpr double moment = 4.0; ///< seconds; where the time line stands
constexpr unsigned leadingKey = 2;

bool near(double left, double right)
{
    return std::abs(left - right) < 1e-6;
}

} // namespace

ExpressionChapter::ExpressionChapter(DemoTools& demoTools)
    : tools(demoTools)
    , boatX(tools.curve(QStringLiteral("boat.position x")))
    , gullY(tools.curve(QStringLiteral("gull.position y")))
    , line(*tools.editor.commandLine)
    , opened(statesOf(tools.window.curves()))
{}

bool ExpressionChapter::run()
{
    tools.editor.clearStack();
    tools.edit({gullY.dotName()});
    return typeExpression() && insertFunction() && insertVariable() && dragLeader() &&
           provokeError() && mendError() && addToKeys() && deleteExpression() && undoAll();
}

bool ExpressionChapter::typeExpression()
{
    const double before = gull();
    typeLine(line, QStringLiteral("t*2"));
    return finish(QStringLiteral("type an expression"), before, near(gull(), moment * 2.0));
}

bool ExpressionChapter::insertFunction()
{
    const double before = gull();
    QMenu* const functions = tools.hand.open(QStringLiteral("Insert/Unary functions"));
    tools.log.picture(QStringLiteral("the Insert menu"));
    if (functions) {
        tools.hand.chooseOpen(*functions, QStringLiteral("sin"));
    }
    return finish(QStringLiteral("insert a function"), before,
                  near(gull(), std::max(std::sin(moment * 2.0), 0.0)));
}

bool ExpressionChapter::insertVariable()
{
    const double before = gull();
    line.setFocus();
    line.end(false);
    typeText(line, QStringLiteral("*9+20+0.4*"));
    QMenu* const curves = tools.hand.open(QStringLiteral("Insert/D vars/boat"));
    tools.log.picture(QStringLiteral("the curves to follow"));
    if (curves) {
        tools.hand.chooseOpen(*curves, QStringLiteral("position_x"));
    }
    const double boat = boatX.valueAt(moment, HostWindow::fps);
    return finish(QStringLiteral("follow the boat"), before,
                  near(gull(), std::sin(moment * 2.0) * 9.0 + 20.0 + 0.4 * boat));
}

/// The host hears of each move while one curve is dragged, and paints its stage anew: the gull's
/// height at the time of the key, while the key is still held.
bool ExpressionChapter::dragLeader()
{
    tools.edit({boatX.dotName()});
    const PointInfo before = keysOf(boatX).at(leadingKey);
    const double time = before.time;
    const double heightBefore = gullY.valueAt(time, HostWindow::fps);
    const QPoint from = tools.mouse.pixelOf(time, before.value);
    const QPoint to = from + QPoint(0, 120);
    int told = 0;
    const QMetaObject::Connection hearing = QObject::connect(
        &tools.editor, &CurveEditor::curveHasChanged, &tools.window, [&told] { ++told; });

    tools.mouse.press(from);
    tools.mouse.moveHeld(from, to);
    QObject::disconnect(hearing);
    const double boat = boatX.valueAt(time, HostWindow::fps);
    const double height = gullY.valueAt(time, HostWindow::fps);
    const bool asSaid =
        tools.log.finish(QStringLiteral("drag the boat"),
                         QStringLiteral("while it is held, at %1 s: boat %2 % -> %3 %, "
                                        "gull %4 % -> %5 %; the host was told %6 times")
                             .arg(time, 0, 'f', 2)
                             .arg(before.value, 0, 'f', 2)
                             .arg(boat, 0, 'f', 2)
                             .arg(heightBefore, 0, 'f', 2)
                             .arg(height, 0, 'f', 2)
                             .arg(told),
                         told > 1 && boat < before.value - 10.0 &&
                             near(height - heightBefore, 0.4 * (boat - before.value)));
    tools.mouse.release(to);
    tools.edit({gullY.dotName()});
    return asSaid;
}

bool ExpressionChapter::provokeError()
{
    const double before = gull();
    QString message;
    // Open before the guest looks: it would take the menu for the window that waits.
    QMenu* const functions = tools.hand.open(QStringLiteral("Insert/Binary functions"));
    const bool told = tools.guest.during(
        [&] {
            if (functions) {
                tools.hand.chooseOpen(*functions, QStringLiteral("min"));
            }
        },
        {[&](QWidget& box) {
            if (const auto* const messageBox = qobject_cast<QMessageBox*>(&box)) {
                message = messageBox->windowTitle() + QStringLiteral(": ") + messageBox->text();
            }
            tools.log.picture(QStringLiteral("the box of an error"));
            press(box, QStringLiteral("OK"));
        }});
    return tools.log.finish(QStringLiteral("provoke an error"),
                            QStringLiteral("\"%1\"; marked: \"%2\" in \"%3\"; the gull is at "
                                           "%4 % -> %5 %")
                                .arg(message, line.selectedText(), line.text())
                                .arg(before, 0, 'f', 2)
                                .arg(gull(), 0, 'f', 2),
                            told && message.contains(QLatin1String("X")) &&
                                line.selectedText() == QLatin1String("X") && near(gull(), before));
}

/// The place-holder is marked, so that what is typed overwrites it.
bool ExpressionChapter::mendError()
{
    const double before = gull();
    typeText(line, QStringLiteral("34"));
    pressKey(line, Qt::Key_Return);
    return finish(QStringLiteral("mend the error"), before, near(gull(), std::min(before, 34.0)));
}

bool ExpressionChapter::addToKeys()
{
    const double before = gull();
    tools.editor.addToSpline->click();
    return finish(QStringLiteral("add to the keys"), before,
                  gullY.spline.isAddFunc() && near(gull(), before + gullY.spline(moment)));
}

bool ExpressionChapter::deleteExpression()
{
    const double before = gull();
    tools.editor.deleteCurve->click();
    return finish(QStringLiteral("delete the expression"), before,
                  !gullY.expression && near(gull(), gullY.spline(moment)));
}

bool ExpressionChapter::undoAll()
{
    const double before = gull();
    const QStringList steps = tools.undo();
    return tools.log.finish(QStringLiteral("undo the expressions"),
                            QStringLiteral("gull at %1 % -> %2 %, %3 (%4)")
                                .arg(before, 0, 'f', 2)
                                .arg(gull(), 0, 'f', 2)
                                .arg(summary(gullY), steps.join(QStringLiteral(", "))),
                            statesOf(tools.window.curves()) == opened);
}

bool ExpressionChapter::finish(const QString& step, double before, bool asSaid)
{
    return tools.log.finish(step,
                            QStringLiteral("gull at %1 % -> %2 %, %3")
                                .arg(before, 0, 'f', 2)
                                .arg(gull(), 0, 'f', 2)
                                .arg(summary(gullY)),
                            asSaid);
}

double ExpressionChapter::gull() const
{
    return gullY.valueAt(moment, HostWindow::fps);
}
