// Modes, tools and modifier keys.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "editor/CurveEditorPrivate.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QPixmap>

#include <array>
#include <iostream>

using curve_editor::CanvasMode;
using curve_editor::ModifierRole;
using curve_editor::ToolIcons;

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
const ModeRow* modeRow(int mode)
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

CanvasMode canvasMode(CurveEditor::curveEditorModes mode)
{
    return static_cast<CanvasMode>(mode);
}

CurveEditor::curveEditorModes editorMode(CanvasMode mode)
{
    return static_cast<CurveEditor::curveEditorModes>(mode);
}

/// The two enumerations name the same modes.
constexpr bool areAlike(CanvasMode mode, CurveEditor::curveEditorModes same)
{
    return static_cast<int>(mode) == static_cast<int>(same);
}

static_assert(areAlike(CanvasMode::DEFAULT, CurveEditor::DEFAULT) &&
              areAlike(CanvasMode::SELECT, CurveEditor::SELECT) &&
              areAlike(CanvasMode::SELECTING, CurveEditor::SELECTING) &&
              areAlike(CanvasMode::MOVE, CurveEditor::MOVE) &&
              areAlike(CanvasMode::MOVING, CurveEditor::MOVING) &&
              areAlike(CanvasMode::ADD, CurveEditor::ADD) &&
              areAlike(CanvasMode::DEL, CurveEditor::DEL) &&
              areAlike(CanvasMode::ADD2SEL, CurveEditor::ADD2SEL) &&
              areAlike(CanvasMode::ADDING2SEL, CurveEditor::ADDING2SEL) &&
              areAlike(CanvasMode::ZOOM, CurveEditor::ZOOM) &&
              areAlike(CanvasMode::ZOOMING, CurveEditor::ZOOMING) &&
              areAlike(CanvasMode::SCALE, CurveEditor::SCALE) &&
              areAlike(CanvasMode::SNAP, CurveEditor::SNAP));

/// The picture of a tool, its hot spot in pixels; the finer one where the screen shows that.
QCursor buildCursor(const ToolIcons& icons, const ModeRow& row)
{
    QPixmap picture(icons.file(row.icon));
    // A cursor made of an empty picture would be an arrow all the same, and a warning.
    if (picture.isNull()) {
        return QCursor();
    }
    if (qApp->devicePixelRatio() > 1.0) {
        picture = icons.icon(row.icon).pixmap(picture.size(), qApp->devicePixelRatio());
    }
    return QCursor(picture, row.hotX, row.hotY);
}

/// Some modes leave the cursor as it is.
void showCursor(QWidget& canvas, CanvasMode mode, const ToolIcons& icons)
{
    const ModeRow* const row = modeRow(static_cast<int>(mode));
    if (row && row->cursor == arrowCursor) {
        canvas.setCursor(Qt::ArrowCursor);
    } else if (row && row->cursor == iconCursor) {
        canvas.setCursor(buildCursor(icons, *row));
    }
}

} // namespace

void CurveEditor::connectModes()
{
    curve_editor::ModeCallbacks callbacks;
    callbacks.beforeTool = [this] { d->canvas().endGesture(); };
    callbacks.beforeMode = [this](CanvasMode next) { d->canvas().endGestureUnlessIn(next); };
    callbacks.toolChanged = [this] {
        for (const ToolRow& tool : toolRows) {
            d->actions.buttonAction(tool.button)->setChecked(getUserMode() == tool.mode);
        }
    };
    callbacks.modeChanged = [this] {
        d->functionEditor->zoomMode = getCurrentMode() == ZOOMING;
        showCursor(*d->functionEditor, d->modes.mode(), d->icons);
        refreshEditor();
    };
    d->modes.setCallbacks(callbacks);
}

void CurveEditor::setCurrentMode(curveEditorModes newMode)
{
    d->modes.setMode(canvasMode(newMode));
}

CurveEditor::curveEditorModes CurveEditor::getCurrentMode()
{
    return editorMode(d->modes.mode());
}

void CurveEditor::setUserMode(curveEditorModes newMode)
{
    d->modes.setUserMode(canvasMode(newMode));
}

CurveEditor::curveEditorModes CurveEditor::getUserMode()
{
    return editorMode(d->modes.userMode());
}

void CurveEditor::printMode(curveEditorModes theMode)
{
    const ModeRow* const row = modeRow(theMode);
    std::cout << (row ? row->name : "UNKNOWN curve editor mode") << std::flush;
}

void CurveEditor::setSelectMode()
{
    d->modes.toggleTool(CanvasMode::SELECT);
}

void CurveEditor::setMoveMode()
{
    d->modes.toggleTool(CanvasMode::MOVE);
}

void CurveEditor::setAddKeyMode()
{
    d->modes.toggleTool(CanvasMode::ADD);
}

void CurveEditor::setDeleteKeyMode()
{
    d->modes.toggleTool(CanvasMode::DEL);
}

void CurveEditor::setZoomMode()
{
    d->modes.toggleTool(CanvasMode::ZOOM);
}

void CurveEditor::setDefaultMode()
{
    d->modes.putToolAway();
}

void CurveEditor::setZoomModifier(QString mod)
{
    d->modes.setModifier(ModifierRole::zoom, mod);
}

ZK_BOOL CurveEditor::isZoomPressed(QInputEvent* e)
{
    return d->modes.isPressed(ModifierRole::zoom, e);
}

QString CurveEditor::getZoomModifier()
{
    return d->modes.modifier(ModifierRole::zoom);
}

void CurveEditor::setSnapModifier(QString mod)
{
    d->modes.setModifier(ModifierRole::snap, mod);
}

ZK_BOOL CurveEditor::isSnapPressed(QInputEvent* e)
{
    return d->modes.isPressed(ModifierRole::snap, e);
}

QString CurveEditor::getSnapModifier()
{
    return d->modes.modifier(ModifierRole::snap);
}

void CurveEditor::setAddModifier(QString mod)
{
    d->modes.setModifier(ModifierRole::add, mod);
}

ZK_BOOL CurveEditor::isAddPressed(QInputEvent* e)
{
    return d->modes.isPressed(ModifierRole::add, e);
}

QString CurveEditor::getAddModifier()
{
    return d->modes.modifier(ModifierRole::add);
}

void CurveEditor::setAdd2selModifier(QString mod)
{
    d->modes.setModifier(ModifierRole::addToSelection, mod);
}

ZK_BOOL CurveEditor::isAdd2selPressed(QInputEvent* e)
{
    return d->modes.isPressed(ModifierRole::addToSelection, e);
}

QString CurveEditor::getAdd2selModifier()
{
    return d->modes.modifier(ModifierRole::addToSelection);
}
