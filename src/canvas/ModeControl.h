#pragma once

#include "canvas/CanvasMode.h"

#include <QString>

#include <array>
#include <functional>

class QInputEvent;

namespace curve_editor {

/// The modifier keys that have a meaning on the canvas.
enum class ModifierRole : int
{
    zoom = 0,
    snap = 1,
    add = 2,
    addToSelection = 3
};

/// Who is told of a change of tool or mode; each may be empty.
struct ModeCallbacks
{
    std::function<void()> beforeTool;           ///< the user chooses a tool, or puts one away
    std::function<void(CanvasMode)> beforeMode; ///< what it does may change the mode itself
    std::function<void()> toolChanged;
    std::function<void()> modeChanged;
};

/// What the mouse does on the canvas: the mode of the moment, the tool chosen, which lasts until
/// another is chosen, and the names of the modifier keys. Any value is stored as a mode.
class ModeControl
{
public:
    ModeControl();

    void setCallbacks(const ModeCallbacks& callbacks);

    /// What is going on at the moment.
    CanvasMode mode() const;
    /// Tells nobody where the mode is in force already, or comes into force beforehand.
    void setMode(CanvasMode next);
    /// The tool chosen.
    CanvasMode userMode() const;
    /// Leaves the mode as it is.
    void setUserMode(CanvasMode next);
    /// Chooses a tool; a second choice of the same one puts it away.
    void toggleTool(CanvasMode tool);
    /// Both modes are DEFAULT.
    void putToolAway();

    /// "alt", "shift", "ctrl" or "meta"; capitals become small letters, and any other name is that
    /// of a key that is never held.
    void setModifier(ModifierRole role, const QString& name);
    QString modifier(ModifierRole role) const;
    /// Whether the role's key is held, as the event tells; false for null.
    bool isPressed(ModifierRole role, const QInputEvent* event) const;

private:
    void choose(CanvasMode tool);

    ModeCallbacks told;
    CanvasMode currentMode = CanvasMode::DEFAULT;
    CanvasMode chosenMode = CanvasMode::DEFAULT;
    std::array<QString, 4> modifiers; ///< by ModifierRole
};

} // namespace curve_editor
