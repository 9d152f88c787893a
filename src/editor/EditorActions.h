#pragma once

#include "editor/CurveEditor.h"
#include "editor/EnabledTable.h"
#include "editor/MenuTable.h"
#include "editor/ToolbarTable.h"

#include <QVector>

#include <memory>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;
class QToolBar;
class QToolButton;
class SplineBase;

namespace curve_editor {

struct ToolIcons;

/// The menus, toolbars and actions of an editor: what they are made of, and which of them are
/// enabled, checked and shown. They do nothing themselves: each action calls a slot of the editor.
class EditorActions
{
public:
    /// Neither is owned; both outlive this object.
    EditorActions(CurveEditor* editor, const ToolIcons* icons);
    /// Frees the buttons of drop-down entries. The rest are children of the editor.
    ~EditorActions();
    EditorActions(const EditorActions&) = delete;
    EditorActions& operator=(const EditorActions&) = delete;

    /// @name Building, once and in this order
    /// @{
    void initMenuBar();
    void initActions();
    void initTopToolbar();
    void initMenus();
    void initInsertMenu();
    /// @}
    /// Texts and shortcuts in the present language; again after each change of it.
    void translate();

    /// Made before anything asks for them; owned by the editor.
    QAction* plainAction(editorActions which) const;
    QMenu* menu(editorMenus which) const;
    /// The action that was made for a button, whatever action it shows at present.
    QAction* buttonAction(CurveEditor::topToolButtons which) const;

    void setEnabled(const EditorItem& item, bool enabled);
    /// What there is to do with the curves being edited.
    void enableFor(const EditingState& state);
    void disableForEmptySet();
    /// Each toolbar by its entry in the menu "Toolbars".
    void showToolbars();
    /// The actions of a spline's behaviours are toggled, not checked: at each second call they
    /// stand unchecked.
    void toggleBehaviours(const SplineBase& spline);
    /// On the button alone, whose action can't be checked. Each change of that action makes the
    /// button uncheckable again.
    void checkButton(CurveEditor::topToolButtons which, bool checked);
    /// Unchecks a button whose dialog has run.
    void releaseButton(CurveEditor::topToolButtons which);
    /// Makes an action the one that a button shows and repeats; its drop-down stays. Does nothing
    /// for null or for a number without a button.
    void setDefaultButton(QAction* action, CurveEditor::topToolButtons button);
    /// The same with the action of an entry of the button's drop-down.
    void setDefaultButton(CurveEditor::topToolButtons entry, CurveEditor::topToolButtons button);

private:
    // Toolbars: EditorActionsToolbars.cpp
    void addTopToolbar(const QString& name, CurveEditor::topToolBars which);
    void addTopToolbarMenu(CurveEditor::topToolButtons button, CurveEditor::topToolBtnsMenus menu);
    void addTopToolbarBtn(const ToolButtonRow& row, QToolBar* toolbar);
    void addTopToolbarMenuBtn(const ToolButtonRow& row, QMenu* menu);
    QAction* newButtonAction(const ToolButtonRow& row, QWidget* parent);
    void addDropDown(CurveEditor::topToolButtons button);
    void initToolButtonStates();

    // Menus: EditorActions.cpp
    void addMenuEntry(QMenu* menu, const MenuEntry& entry);

    CurveEditor* editor;                 ///< not owned: it owns this object
    const ToolIcons* icons;              ///< not owned: a neighbour in the editor
    QVector<QToolButton*> toolButtons;   ///< by topToolButtons; 38 is null
    QVector<QToolBar*> topToolBarList;   ///< by topToolBars
    QVector<QAction*> topToolBarActions; ///< by topToolBars: shown or hidden
    QVector<QMenu*> topToolBtnMenus;     ///< by topToolBtnsMenus
    QVector<QAction*> toolButtonActions; ///< by topToolButtons: the action made for each
    QVector<QAction*> plainActions;      ///< by editorActions; children of the editor
    QVector<QMenu*> menus;               ///< by editorMenus
    QMenuBar* menuBar = nullptr;         ///< a child of mainMenu
    /// Buttons that hold the entries of drop-downs; never shown, without a parent.
    std::vector<std::unique_ptr<QToolButton>> menuEntryButtons;
};

} // namespace curve_editor
