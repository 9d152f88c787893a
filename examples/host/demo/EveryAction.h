#pragma once

#include "DemoTools.h"

#include <QAction>
#include <QPointer>
#include <QSet>

#include <vector>

/// Triggers each action of the editor's menus and toolbars once, the tree's menu included, with a
/// key selected and keys in the clipboard so that all are enabled. What opens is closed as by
/// Escape, and what was done is undone.
class EveryAction
{
public:
    /// `hostWindow` stays the caller's.
    explicit EveryAction(HostWindow& hostWindow);

    /// Prints a line for each action and their number at the end. False if one was disabled or did
    /// nothing when it was triggered.
    bool run();

private:
    /// An action by the menus or the toolbar on the way to it.
    struct Found
    {
        QString path;
        QPointer<QAction> action; ///< not owned
    };

    void collect();
    void collect(const QString& path, const QList<QAction*>& actions);
    void prepare();
    bool trigger(const Found& found);
    bool triggerInTree(const QString& text);
    bool report(const QString& path, bool done, const QStringList& closed);
    void tidyUp(const Found& found);

    DemoTools tools;
    std::vector<Found> all;
    QSet<QAction*> known; ///< of those found
    int triggered = 0;
    int windows = 0; ///< closed
};
