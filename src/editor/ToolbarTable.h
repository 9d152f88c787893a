#pragma once

#include "editor/CurveEditor.h"

#include <QList>

namespace curve_editor {

/// One of the movable toolbars of the frame.
struct ToolBarRow
{
    CurveEditor::topToolBars which;
    const char* title;
    bool fixedWidth; ///< else the width is a minimum
    int icons;       ///< the width is so many icon sides
    int extra;       ///< and so many pixels more
};

/// What of a toolbar entry can be checked.
enum checkableParts : int
{
    nothingCheckable,
    buttonCheckable,
    actionCheckable
};

/// One entry of a toolbar, or of the drop-down of a toolbar's button.
struct ToolButtonRow
{
    CurveEditor::topToolButtons which;
    const char* text;    ///< translated; also the action's object name
    const char* toolTip; ///< null: the same as the text. Not translated
    const char* slot;    ///< of the editor
    checkableParts checkable;
    bool visible;
};

/// The buttons of one toolbar, in their order.
struct ToolBarButtons
{
    CurveEditor::topToolBars toolBar;
    QList<ToolButtonRow> buttons;
};

/// A drop-down of a button.
struct DropDownRow
{
    CurveEditor::topToolBtnsMenus which;
    CurveEditor::topToolButtons button;
    int startEntry; ///< the entry that the button shows at first; -1: its own action
    QList<ToolButtonRow> entries;
};

/// In order of creation, which is the order on screen.
const QList<ToolBarRow>& toolBarRows();
const QList<ToolBarButtons>& toolBarButtonRows();
const QList<DropDownRow>& dropDownRows();

/// The rows of all buttons, those in drop-downs included.
QList<ToolButtonRow> allToolButtonRows();

/// The drop-down of a button, or null.
const DropDownRow* dropDownOf(CurveEditor::topToolButtons button);

} // namespace curve_editor
