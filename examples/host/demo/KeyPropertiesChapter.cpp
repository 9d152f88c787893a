#include "KeyPropertiesChapter.h"

#include "DemoTools.h"
#include "HostWindow.h"

#include <editor/CurveEditor.h>

#include <QComboBox>
#include <QLineEdit>
#include <QWidget>

namespace {

constexpr unsigned shownKey = 2;

QString field(const char* name)
{
    return QString::fromLatin1(name);
}

} // namespace

KeyPropertiesChapter::KeyPropertiesChapter(DemoTools& demoTools)
    : tools(demoTools)
    , curve(tools.curve(QStringLiteral("boat.rotation")))
    , opened(statesOf(tools.window.curves()))
{}

bool KeyPropertiesChapter::run()
{
    tools.editor.clearStack();
    return show() && typeTension() && stepThroughKeys() && changeType() && close();
}

bool KeyPropertiesChapter::show()
{
    tools.edit({curve.dotName()});
    const PointInfo key = keysOf(curve).at(shownKey);
    tools.mouse.click(tools.mouse.pixelOf(key.time, key.value));
    const bool chosen = tools.hand.choose(field("View/Show Key Properties"));
    dialog = tools.hand.keyDialog();
    if (!dialog) {
        return tools.log.finish(field("show key properties"), field("no dialog"), false);
    }
    dialog->move(tools.window.mapToGlobal(QPoint(390, 250)));
    return tools.log.finish(field("show key properties"),
                            QStringLiteral("key %1 at frame %2, value %3, tension %4")
                                .arg(textOf(*dialog, field("node")), textOf(*dialog, field("posX")),
                                     textOf(*dialog, field("posY")),
                                     textOf(*dialog, field("tension"))),
                            chosen && dialog->isVisible() &&
                                textOf(*dialog, field("node")) == QString::number(shownKey));
}

bool KeyPropertiesChapter::typeTension()
{
    const double before = curve.spline[shownKey]->tcb.tension;
    if (auto* const line = dialog->findChild<QLineEdit*>(field("tension"))) {
        typeLine(*line, field("-1.5"));
    }
    const double after = curve.spline[shownKey]->tcb.tension;
    return tools.log.finish(field("type a tension"),
                            QStringLiteral("tension %1 -> %2").arg(before).arg(after),
                            before != after && after == -1.5);
}

bool KeyPropertiesChapter::stepThroughKeys()
{
    QStringList shown(textOf(*dialog, field("node")));
    for (const char* const button : {">>", ">>", "<<"}) {
        press(*dialog, field(button));
        shown.append(textOf(*dialog, field("node")));
    }
    return tools.log.finish(field("next and previous key"),
                            field("key ") + shown.join(field(" -> ")),
                            shown == QStringList({"2", "3", "4", "3"}));
}

bool KeyPropertiesChapter::changeType()
{
    const auto before = static_cast<int>(curve.spline[shownKey + 1]->type);
    auto* const types = dialog->findChild<QComboBox*>(field("nodeTypeCombo"));
    const QString textBefore = types->currentText();
    types->setFocus();
    pressKey(*types, Qt::Key_Down);
    const auto after = static_cast<int>(curve.spline[shownKey + 1]->type);
    return tools.log.finish(field("change the type of a key"),
                            textBefore + field(" -> ") + types->currentText(),
                            before != after && after == static_cast<int>(zk_spline::bezier));
}

bool KeyPropertiesChapter::close()
{
    const QStringList steps = tools.undo();
    const QString tension = textOf(*dialog, field("tension"));
    const bool chosen = tools.hand.choose(field("View/Show Key Properties"));
    return tools.log.finish(field("undo the properties"),
                            QStringLiteral("%1; the dialog shows a tension of \"%2\" (%3)")
                                .arg(summary(curve), tension, steps.join(field(", "))),
                            chosen && !dialog->isVisible() &&
                                statesOf(tools.window.curves()) == opened);
}
