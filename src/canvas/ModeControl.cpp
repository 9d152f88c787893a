#include "canvas/ModeControl.h"

#include <QKeyEvent>

namespace curve_editor {

namespace {

struct ModifierRow
{
    const char* name;
    Qt::Key key;
    Qt::KeyboardModifier flag;
};

const std::array<ModifierRow, 4> modifierRows{{
    {"alt", Qt::Key_Alt, Qt::AltModifier},
    {"shift", Qt::Key_Shift, Qt::ShiftModifier},
    {"ctrl", Qt::Key_Control, Qt::ControlModifier},
    {"meta", Qt::Key_Meta, Qt::MetaModifier},
}};

/// A key event of the modifier itself tells by its kind, whatever its flags still hold.
bool isHeld(const ModifierRow& row, const QInputEvent& event)
{
    const bool isPress = event.type() == QEvent::KeyPress;
    if (isPress || event.type() == QEvent::KeyRelease) {
        if (static_cast<const QKeyEvent&>(event).key() == row.key) {
            return isPress;
        }
    }
    return event.modifiers().testFlag(row.flag);
}

template <class... Arguments>
void tell(const std::function<void(Arguments...)>& callback, Arguments... arguments)
{
    if (callback) {
        callback(arguments...);
    }
}

} // namespace

ModeControl::ModeControl()
    : modifiers{"alt", "alt", "ctrl", "shift"}
{}

void ModeControl::setCallbacks(const ModeCallbacks& callbacks)
{
    told = callbacks;
}

CanvasMode ModeControl::mode() const
{
    return currentMode;
}

void ModeControl::setMode(CanvasMode next)
{
    if (next != currentMode) {
        tell(told.beforeMode, next);
    }
    if (next == currentMode) {
        return;
    }
    currentMode = next;
    tell(told.modeChanged);
}

CanvasMode ModeControl::userMode() const
{
    return chosenMode;
}

void ModeControl::setUserMode(CanvasMode next)
{
    if (next != chosenMode) {
        chosenMode = next;
        tell(told.toolChanged);
    }
}

void ModeControl::toggleTool(CanvasMode tool)
{
    tell(told.beforeTool);
    choose(chosenMode == tool ? CanvasMode::DEFAULT : tool);
}

void ModeControl::putToolAway()
{
    tell(told.beforeTool);
    choose(CanvasMode::DEFAULT);
}

void ModeControl::choose(CanvasMode tool)
{
    setUserMode(tool);
    setMode(tool);
}

void ModeControl::setModifier(ModifierRole role, const QString& name)
{
    modifiers.at(static_cast<std::size_t>(role)) = name.toLower();
}

QString ModeControl::modifier(ModifierRole role) const
{
    return modifiers.at(static_cast<std::size_t>(role));
}

bool ModeControl::isPressed(ModifierRole role, const QInputEvent* event) const
{
    const QString name = modifier(role);
    for (const ModifierRow& row : modifierRows) {
        if (event && name == QLatin1String(row.name)) {
            return isHeld(row, *event);
        }
    }
    return false;
}

} // namespace curve_editor
