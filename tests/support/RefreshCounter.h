#pragma once

#include "editor/CurveEditor.h"

#include <QAction>
#include <QSignalSpy>

/// Counts the refreshes of an editor that edits a curve with a constant end: each toggles the
/// action of that behaviour.
class RefreshCounter
{
public:
    explicit RefreshCounter(const CurveEditor& editor)
        : toggles(editor.findChild<QAction*>("lastConstant"), SIGNAL(toggled(bool)))
    {}

    /// Since the last call.
    int taken()
    {
        const int number = static_cast<int>(toggles.count());
        toggles.clear();
        return number;
    }

private:
    QSignalSpy toggles;
};
