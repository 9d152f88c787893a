#include "SettingsChapter.h"

#include "DemoTools.h"
#include "HostWindow.h"

#include <editor/CurveEditor.h>

#include <QComboBox>

#include <algorithm>
#include <cmath>

namespace {

QString text(const char* letters)
{
    return QString::fromLatin1(letters);
}

/// Whether each key went where `move` sends it.
template <typename Move>
bool moved(const std::vector<PointInfo>& before, const std::vector<PointInfo>& after, Move move)
{
    return std::equal(before.begin(), before.end(), after.begin(), after.end(),
                      [&](PointInfo key, const PointInfo& now) {
                          move(key);
                          return std::abs(key.time - now.time) < 1e-9 &&
                                 std::abs(key.value - now.value) < 1e-9;
                      });
}

QString keyText(const PointInfo& key)
{
    return QStringLiteral("%1 s, %2").arg(key.time, 0, 'f', 2).arg(key.value, 0, 'f', 2);
}

} // namespace

SettingsChapter::SettingsChapter(DemoTools& demoTools)
    : tools(demoTools)
    , curve(tools.curve(text("boat.scale")))
    , opened(statesOf(tools.window.curves()))
{}

bool SettingsChapter::run()
{
    tools.editor.clearStack();
    tools.edit({curve.dotName()});
    return setRange() && pan() && scale() && undoAll() && setOptions();
}

bool SettingsChapter::setRange()
{
    const QStringList wanted = {text("-2"), text("-20"), text("14"), text("160")};
    const QStringList rangeBefore = rangeFields();
    const bool answered = tools.guest.during([this] { tools.hand.choose(text("View/Set Range")); },
                                             {[&](QWidget& dialog) {
                                                 fill(dialog, text("minX"), wanted.at(0));
                                                 fill(dialog, text("minY"), wanted.at(1));
                                                 fill(dialog, text("maxX"), wanted.at(2));
                                                 fill(dialog, text("maxY"), wanted.at(3));
                                                 tools.log.picture(text("the range dialog"));
                                                 press(dialog, text("Ok"));
                                             }});
    const QStringList rangeAfter = rangeFields();
    return tools.log.finish(text("set the range"),
                            text("MinX, MinY, MaxX, MaxY ") + rangeBefore.join(text(", ")) +
                                text(" -> ") + rangeAfter.join(text(", ")),
                            answered && rangeBefore != wanted && rangeAfter == wanted);
}

/// The axis is in frames, 25 of them a second.
bool SettingsChapter::pan()
{
    const bool chosen = changeKeys(text("the pan dialog"), text("Edit/Pan Selection"), text("panX"),
                                   text("25"), text("panY"), text("12.5"));
    const std::vector<PointInfo> after = keysOf(curve);
    return tools.log.finish(text("pan the keys"),
                            text("key 2 at ") + keyText(before.at(1)) + text(" -> ") +
                                keyText(after.at(1)),
                            chosen && moved(before, after, [](PointInfo& key) {
                                key.time += 1.0;
                                key.value += 12.5;
                            }));
}

bool SettingsChapter::scale()
{
    const bool chosen = changeKeys(text("the scale dialog"), text("Edit/Scale Selection"),
                                   text("scaleX"), text("0.8"), text("scaleY"), text("0.5"));
    const std::vector<PointInfo> after = keysOf(curve);
    return tools.log.finish(text("scale the keys"),
                            text("key 2 at ") + keyText(before.at(1)) + text(" -> ") +
                                keyText(after.at(1)),
                            chosen && moved(before, after, [](PointInfo& key) {
                                key.time *= 0.8;
                                key.value *= 0.5;
                            }));
}

bool SettingsChapter::undoAll()
{
    const PointInfo scaled = keysOf(curve).at(1);
    const QStringList steps = tools.undo();
    return tools.log.finish(
        text("undo pan and scale"),
        QStringLiteral("key 2 at %1 -> %2 (%3)")
            .arg(keyText(scaled), keyText(keysOf(curve).at(1)), steps.join(text(", "))),
        statesOf(tools.window.curves()) == opened);
}

bool SettingsChapter::setOptions()
{
    const int typeBefore = tools.editor.getDefaultNodeTypePos();
    const bool answered = tools.guest.during(
        [this] { tools.editor.setOptions(); }, {[this](QWidget& dialog) {
            dialog.findChild<QComboBox*>(text("nodeTypeCombo"))->setCurrentIndex(2);
            tools.log.picture(text("the settings dialog"));
            press(dialog, text("Ok"));
        }});
    const int typeAfter = tools.editor.getDefaultNodeTypePos();
    tools.editor.setDefaultNodeType(typeBefore);
    return tools.log.finish(
        text("change the settings"),
        QStringLiteral("default node type %1 -> %2").arg(typeBefore).arg(typeAfter),
        answered && typeBefore != typeAfter && typeAfter == 2);
}

/// What the range dialog shows; it is left by Cancel.
QStringList SettingsChapter::rangeFields()
{
    QStringList fields;
    tools.guest.during([this] { tools.hand.choose(text("View/Set Range")); },
                       {[&](QWidget& dialog) {
                           for (const char* const name : {"minX", "minY", "maxX", "maxY"}) {
                               fields.append(textOf(dialog, text(name)));
                           }
                           press(dialog, text("Cancel"));
                       }});
    return fields;
}

/// Selects all keys and answers the dialog of an entry.
bool SettingsChapter::changeKeys(const QString& step, const QString& entry, const QString& xField,
                                 const QString& x, const QString& yField, const QString& y)
{
    before = keysOf(curve);
    bool chosen = tools.hand.choose(text("Keys/selectAll"));
    const bool answered = tools.guest.during([&] { chosen = tools.hand.choose(entry) && chosen; },
                                             {[&](QWidget& dialog) {
                                                 fill(dialog, xField, x);
                                                 fill(dialog, yField, y);
                                                 tools.log.picture(step);
                                                 press(dialog, text("Ok"));
                                             }});
    return chosen && answered;
}
