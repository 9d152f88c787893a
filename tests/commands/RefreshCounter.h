#pragma once

#include "editor/CurveEditor.h"

#include <QAction>

#include <utility>

/// How often the editor refreshes itself: each refresh toggles the action of the first curve's
/// behaviour after its last key.
class RefreshCounter
{
public:
    explicit RefreshCounter(CurveEditor& editor)
    {
        for (QAction* action : editor.findChildren<QAction*>()) {
            if (action->isCheckable() && action->text() == QLatin1String("Loop")) {
                QObject::connect(action, &QAction::toggled, action, [this] { ++count; });
            }
        }
    }

    int take() { return std::exchange(count, 0); }

private:
    int count = 0;
};
