#include "EveryAction.h"

#include "CurveState.h"
#include "HostWindow.h"

#include <editor/CurveEditor.h>

#include <QApplication>
#include <QMenu>
#include <QTextStream>
#include <QToolBar>

namespace {

constexpr unsigned selectedKey = 2;

QString curveName()
{
    return QStringLiteral("boat.position x");
}

} // namespace

EveryAction::EveryAction(HostWindow& hostWindow)
    : tools(hostWindow, QDir())
{}

bool EveryAction::run()
{
    tools.window.show();
    tools.window.activateWindow();
    QApplication::processEvents();
    collect();

    bool complete = true;
    for (const Found& found : all) {
        prepare();
        complete = trigger(found) && complete;
        tidyUp(found);
    }
    const QStringList treeEntries = {QStringLiteral("Change color"),
                                     QStringLiteral("Remove from editing list")};
    for (const QString& text : treeEntries) {
        prepare();
        complete = triggerInTree(text) && complete;
    }
    QTextStream(stdout) << "every action: " << triggered << " of "
                        << all.size() + static_cast<std::size_t>(treeEntries.size())
                        << " triggered, " << windows << " windows closed" << Qt::endl;
    return complete;
}

void EveryAction::collect()
{
    // The curves to follow are listed when their menu opens.
    tools.hand.open(QStringLiteral("Insert/D vars"));
    tools.hand.closeMenus();
    for (QMenu* const menu : tools.hand.menus()) {
        collect(menu->menuAction()->text(), menu->actions());
    }
    for (QToolBar* const toolBar : tools.editor.topToolbar->findChildren<QToolBar*>()) {
        collect(QStringLiteral("toolbar ") + toolBar->windowTitle(), toolBar->actions());
    }
}

/// Many actions stand in several places; each is taken at the first. Those that are not shown are
/// out of a user's reach.
void EveryAction::collect(const QString& path, const QList<QAction*>& actions)
{
    for (QAction* const action : actions) {
        const QString place = path + QLatin1Char('/') + action->text();
        if (action->menu()) {
            collect(place, action->menu()->actions());
        } else if (!action->isSeparator() && action->isVisible() && !known.contains(action)) {
            known.insert(action);
            all.push_back({place, action});
        }
    }
}

/// One curve is edited, a key of it is selected and copied, and a step can be undone.
void EveryAction::prepare()
{
    tools.edit({curveName()});
    tools.editor.setUserMode(CurveEditor::DEFAULT);
    tools.editor.setShowFrames();
    tools.editor.refreshCommandLine();
    const PointInfo key = keysOf(tools.curve(curveName())).at(selectedKey);
    tools.mouse.click(tools.mouse.pixelOf(key.time, key.value));
    tools.hand.choose(QStringLiteral("Edit/Copy/Copy Selected Keys"));
}

bool EveryAction::trigger(const Found& found)
{
    if (!found.action || !found.action->isEnabled()) {
        return report(found.path, false, {});
    }
    int times = 0;
    const QMetaObject::Connection counting =
        QObject::connect(found.action, &QAction::triggered, &tools.window, [&times] { ++times; });
    const QStringList closed = tools.guest.closingAll([&found] { found.action->trigger(); });
    QObject::disconnect(counting);
    return report(found.path, times == 1, closed);
}

/// The entries of the tree's menu act on the curve that the menu was opened on.
bool EveryAction::triggerInTree(const QString& text)
{
    bool done = false;
    QStringList closed;
    const auto choose = [&](QWidget& popup) {
        if (auto* const menu = qobject_cast<QMenu*>(&popup)) {
            const QMetaObject::Connection counting =
                QObject::connect(menu, &QMenu::triggered, &tools.window, [&done] { done = true; });
            tools.hand.chooseOpen(*menu, text);
            QObject::disconnect(counting);
        }
    };
    const auto close = [&closed](QWidget& dialog) {
        closed.append(dialog.windowTitle());
        dismiss(dialog);
    };
    tools.guest.during([&] { tools.hand.openTreeMenu(curveName()); }, {choose, close});
    const bool asSaid = report(QStringLiteral("tree/") + text, done, closed);
    tools.undo();
    return asSaid;
}

bool EveryAction::report(const QString& path, bool done, const QStringList& closed)
{
    QTextStream out(stdout);
    out << "action " << path;
    for (const QString& title : closed) {
        out << ", closed \"" << title << '"';
    }
    out << (done ? "" : " FAILED") << Qt::endl;
    triggered += done ? 1 : 0;
    windows += static_cast<int>(closed.size());
    return done;
}

void EveryAction::tidyUp(const Found& found)
{
    if (found.path.startsWith(QLatin1String("View/Toolbars/"))) {
        found.action->trigger();
    }
    QWidget* const keyDialog = tools.hand.keyDialog();
    if (keyDialog && keyDialog->isVisible()) {
        keyDialog->close();
    }
    tools.undo();
}
