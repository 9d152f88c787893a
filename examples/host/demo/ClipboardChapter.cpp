#include "ClipboardChapter.h"

#include "DemoTools.h"
#include "HostWindow.h"
#include "TimeLine.h"

#include <editor/CurveEditor.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double moment = 4.0; ///< seconds; where the time line stands
constexpr unsigned firstCopied = 1;
constexpr unsigned lastCopied = 2;

bool holds(const std::vector<PointInfo>& keys, const PointInfo& wanted, double offset)
{
    return std::any_of(keys.begin(), keys.end(), [&](const PointInfo& key) {
        return std::abs(key.time - wanted.time - offset) < 1e-9 && key.value == wanted.value &&
               key.type == wanted.type;
    });
}

} // namespace

ClipboardChapter::ClipboardChapter(DemoTools& demoTools)
    : tools(demoTools)
    , source(tools.curve(QStringLiteral("boat.position x")))
    , target(tools.curve(QStringLiteral("sail.hue")))
    , opened(statesOf(tools.window.curves()))
{}

bool ClipboardChapter::run()
{
    tools.editor.clearStack();
    tools.window.timeLine()->setTime(moment);
    if (!copyKeys()) {
        return false;
    }
    const double toFirst = moment - copied.front().time;
    const Way ways[] = {{"Paste Combined", 0.0, true},
                        {"Paste Combined After Timeline", moment, true},
                        {"Paste Combined on Current Frame", toFirst, true},
                        {"Paste and Replace", 0.0, false},
                        {"Paste and Replace After Timeline", moment, false},
                        {"Paste and Replace on Current Frame", toFirst, false}};
    tools.edit({target.dotName()});
    return std::all_of(std::begin(ways), std::end(ways),
                       [this](const Way& way) { return paste(way); }) &&
           copyCurve() && undoAll();
}

/// Two keys, caught in a rectangle.
bool ClipboardChapter::copyKeys()
{
    tools.edit({source.dotName()});
    const std::vector<PointInfo> keys = keysOf(source);
    copied = {keys.begin() + firstCopied, keys.begin() + lastCopied + 1};
    tools.mouse.drag(tools.mouse.pixelOf(copied.front().time - 0.6, copied.back().value + 12.0),
                     tools.mouse.pixelOf(copied.back().time + 0.6, copied.front().value - 12.0));
    const bool chosen = tools.hand.choose(QStringLiteral("Edit/Copy/Copy Selected Keys"));
    return tools.log.finish(QStringLiteral("copy keys"),
                            QStringLiteral("%1 of %2 keys of %3, at %4 s and %5 s")
                                .arg(copied.size())
                                .arg(keys.size())
                                .arg(source.dotName())
                                .arg(copied.front().time, 0, 'f', 2)
                                .arg(copied.back().time, 0, 'f', 2),
                            chosen);
}

bool ClipboardChapter::paste(const Way& way)
{
    const std::vector<PointInfo> before = keysOf(target);
    const QString textBefore = summary(target);
    const QString entry = QString::fromLatin1(way.entry);
    const bool chosen = tools.hand.choose(QStringLiteral("Edit/Paste/") + entry);

    const std::vector<PointInfo> after = keysOf(target);
    const bool pasted = after.size() == copied.size() + (way.keepsKeys ? before.size() : 0) &&
                        std::all_of(copied.begin(), copied.end(), [&](const PointInfo& key) {
                            return holds(after, key, way.offset);
                        });
    const bool finished = tools.log.finish(entry.toLower(),
                                           QStringLiteral("%1: %2 -> %3, moved by %4 s")
                                               .arg(target.dotName(), textBefore, summary(target))
                                               .arg(way.offset, 0, 'f', 2),
                                           chosen && pasted);
    tools.undo(1);
    return finished && sameKeys(keysOf(target), before);
}

bool ClipboardChapter::copyCurve()
{
    const QString before = summary(target);
    tools.edit({source.dotName()});
    const bool copiedAll = tools.hand.choose(QStringLiteral("Edit/Copy/Copy Curve"));
    tools.edit({target.dotName()});
    const bool pasted = tools.hand.choose(QStringLiteral("Edit/Paste/Paste and Replace"));
    return tools.log.finish(
        QStringLiteral("copy a whole curve"),
        QStringLiteral("%1: %2 -> %3").arg(target.dotName(), before, summary(target)),
        copiedAll && pasted && sameKeys(keysOf(source), keysOf(target)));
}

bool ClipboardChapter::undoAll()
{
    const QString before = summary(target);
    const QStringList steps = tools.undo();
    return tools.log.finish(
        QStringLiteral("undo the pastes"),
        QStringLiteral("%1: %2 -> %3 (%4)")
            .arg(target.dotName(), before, summary(target), steps.join(QStringLiteral(", "))),
        statesOf(tools.window.curves()) == opened);
}
