#pragma once

#include "CanvasMouse.h"
#include "EditorHand.h"
#include "ModalGuest.h"
#include "StepLog.h"

#include <QStringList>

class CurveEditor;
class HostCurve;
class HostWindow;

/// What the chapters of the demonstration work with. The window stays the caller's.
struct DemoTools
{
    DemoTools(HostWindow& hostWindow, const QDir& folder);

    /// A curve of the scene; the demonstration knows their names.
    HostCurve& curve(const QString& dotName) const;
    /// Makes the curves the ones that are edited, with the view of the whole scene.
    void edit(const QStringList& dotNames) const;
    /// Undoes the newest steps, all of them or a number. The texts of the menu entry.
    QStringList undo(int steps = 1000) const;
    QStringList redo(int steps = 1000) const;

    HostWindow& window;
    CurveEditor& editor; ///< the window's
    StepLog log;
    EditorHand hand;
    CanvasMouse mouse;
    ModalGuest guest;
};
