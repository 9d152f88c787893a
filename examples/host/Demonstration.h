#pragma once

#include "CanvasMouse.h"

#include <QDir>
#include <QString>

#include <memory>
#include <vector>

class CurveEditor;
class HostCurve;
class HostWindow;
struct PointInfo;

/// Plays what a user would do with the host, step by step: each step prints a line with the values
/// before and after, checks that it did what it says, and leaves a picture of the window.
class Demonstration
{
public:
    /// `window` stays the caller's; the pictures and the saved curve go into `path`.
    Demonstration(HostWindow& hostWindow, const QString& path);

    /// False as soon as a step did not do what it says.
    bool run();

private:
    bool openCurves();
    bool selectCurve();
    bool dragKey();
    bool dragHandle();
    bool undoAll();
    bool redoAll();
    bool save();
    bool moveTime();

    bool finish(const QString& step, const QString& text, bool asSaid);
    std::vector<PointInfo> keys() const;
    QString keyText(const PointInfo& key) const;

    HostWindow& window;
    CurveEditor* const editor; ///< the window's
    const QDir folder;
    HostCurve* curve = nullptr; ///< the store's; the curve that is edited
    std::unique_ptr<CanvasMouse> mouse;
    std::vector<PointInfo> opened; ///< the keys as they were read
    std::vector<PointInfo> edited; ///< the keys after the drags
    int undone = 0;                ///< commands
    int pictures = 0;
};
