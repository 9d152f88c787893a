// Modes, tools and modifier keys.

#include "editor/CurveEditor.h"

#include "canvas/FunctionEditor.h"
#include "editor/CurveEditorPrivate.h"

#include <QAction>
#include <QCursor>
#include <QKeyEvent>
#include <QPixmap>

#include <array>
#include <iostream>

namespace {

enum cursorKinds : int
{
    arrowCursor,
    unchangedCursor,
    iconCursor
};

/// What a mode is called and how the cursor looks in it.
struct ModeRow
{
    const char* name;
    cursorKinds cursor;
    int icon; ///< number of the tool's button
    int hotX; ///< pixels
    int hotY;
};

/// By value of the mode.
const std::array<ModeRow, 13> modeRows{{
    {"DEFAULT", arrowCursor, 0, 0, 0},
    {"SELECT", iconCursor, 33, 11, 11},
    {"SELECTING", iconCursor, 33, 11, 11},
    {"MOVE", iconCursor, 34, 11, 11},
    {"MOVING", iconCursor, 33, 11, 11},
    {"ADD", iconCursor, 35, 12, 12},
    {"DEL", iconCursor, 36, 11, 11},
    {"ADD2SEL", unchangedCursor, 0, 0, 0},
    {"ADDING2SEL", unchangedCursor, 0, 0, 0},
    {"ZOOM", iconCursor, 37, 17, 17},
    {"ZOOMING", iconCursor, 37, 17, 17},
    {"SCALE", unchangedCursor, 0, 0, 0},
    {"SNAP", iconCursor, 34, 0, 0},
}};

/// Null for a value that is no mode.
const ModeRow* modeRow(const int& mode)
{
    return mode >= 0 && mode < static_cast<int>(modeRows.size())
               ? &modeRows[static_cast<std::size_t>(mode)]
               : nullptr;
}

struct ToolRow
{
    CurveEditor::topToolButtons button;
    CurveEditor::curveEditorModes mode;
};

const std::array<ToolRow, 5> toolRows{{
    {CurveEditor::selectControlPointsButton, CurveEditor::SELECT},
    {CurveEditor::moveSelectedButton, CurveEditor::MOVE},
    {CurveEditor::addNewControlPointButton, CurveEditor::ADD},
    {CurveEditor::removeControlPointButton, CurveEditor::DEL},
    {CurveEditor::zoomToolButton, CurveEditor::ZOOM},
}};

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

bool isKeyEvent(const QInputEvent* event)
{
    return event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
}

} // namespace

void CurveEditor::setCurrentMode(curveEditorModes newMode)
{
    if (newMode != currentMode) {
        d->canvas().endGestureUnlessIn(newMode);
    }
    if (newMode == currentMode) {
        return;
    }
    currentMode = newMode;
    d->functionEditor->zoomMode = newMode == ZOOMING;
    if (const ModeRow* const row = modeRow(newMode)) {
        if (row->cursor == arrowCursor) {
            d->functionEditor->setCursor(Qt::ArrowCursor);
        } else if (row->cursor == iconCursor) {
            d->functionEditor->setCursor(buildCursor(row->icon, row->hotX, row->hotY));
        }
    }
    refreshEditor();
}

CurveEditor::curveEditorModes CurveEditor::getCurrentMode()
{
    return currentMode;
}

void CurveEditor::setUserMode(curveEditorModes newMode)
{
    if (newMode == userMode) {
        return;
    }
    userMode = newMode;
    for (const ToolRow& tool : toolRows) {
        d->actions.buttonAction(tool.button)->setChecked(newMode == tool.mode);
    }
}

CurveEditor::curveEditorModes CurveEditor::getUserMode()
{
    return userMode;
}

void CurveEditor::printMode(curveEditorModes theMode)
{
    const ModeRow* const row = modeRow(theMode);
    std::cout << (row ? row->name : "UNKNOWN curve editor mode") << std::flush;
}

/// A second choice of the same tool puts it away.
void CurveEditor::toggleTool(const curveEditorModes& tool)
{
    d->canvas().endGesture();
    const curveEditorModes next = userMode == tool ? DEFAULT : tool;
    setUserMode(next);
    setCurrentMode(next);
}

void CurveEditor::setSelectMode()
{
    toggleTool(SELECT);
}

void CurveEditor::setMoveMode()
{
    toggleTool(MOVE);
}

void CurveEditor::setAddKeyMode()
{
    toggleTool(ADD);
}

void CurveEditor::setDeleteKeyMode()
{
    toggleTool(DEL);
}

void CurveEditor::setZoomMode()
{
    toggleTool(ZOOM);
}

void CurveEditor::setDefaultMode()
{
    d->canvas().endGesture();
    setUserMode(DEFAULT);
    setCurrentMode(DEFAULT);
}

QCursor CurveEditor::buildCursor(const int& icon, const int& hotX, const int& hotY) const
{
    const QPixmap picture(d->icons.file(icon));
    // A cursor made of an empty picture would be an arrow all the same, and a warning.
    return picture.isNull() ? QCursor() : QCursor(picture, hotX, hotY);
}

void CurveEditor::setModifier(QString& target, const QString& value)
{
    target = value.toLower();
}

bool CurveEditor::isModifierPressed(QInputEvent* e, const QString& name) const
{
    if (!e) {
        return false;
    }
    for (const ModifierRow& row : modifierRows) {
        if (name != QLatin1String(row.name)) {
            continue;
        }
        if (isKeyEvent(e) && static_cast<QKeyEvent*>(e)->key() == row.key) {
            return e->type() == QEvent::KeyPress;
        }
        return e->modifiers().testFlag(row.flag);
    }
    return false;
}

void CurveEditor::setZoomModifier(QString mod)
{
    setModifier(zoomModifier, mod);
}

ZK_BOOL CurveEditor::isZoomPressed(QInputEvent* e)
{
    return isModifierPressed(e, zoomModifier);
}

QString CurveEditor::getZoomModifier()
{
    return zoomModifier;
}

void CurveEditor::setSnapModifier(QString mod)
{
    setModifier(snapModifier, mod);
}

ZK_BOOL CurveEditor::isSnapPressed(QInputEvent* e)
{
    return isModifierPressed(e, snapModifier);
}

QString CurveEditor::getSnapModifier()
{
    return snapModifier;
}

void CurveEditor::setAddModifier(QString mod)
{
    setModifier(addModifier, mod);
}

ZK_BOOL CurveEditor::isAddPressed(QInputEvent* e)
{
    return isModifierPressed(e, addModifier);
}

QString CurveEditor::getAddModifier()
{
    return addModifier;
}

void CurveEditor::setAdd2selModifier(QString mod)
{
    setModifier(add2selModifier, mod);
}

ZK_BOOL CurveEditor::isAdd2selPressed(QInputEvent* e)
{
    return isModifierPressed(e, add2selModifier);
}

QString CurveEditor::getAdd2selModifier()
{
    return add2selModifier;
}
