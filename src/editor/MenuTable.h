#pragma once

#include <QList>

namespace curve_editor {

/// The actions of the editor that are no toolbar entries.
enum editorActions : int
{
    resetAllCurvesAction,
    resetSelectedCurvesAction,
    loadCurveAction,
    saveCurveAction,
    undoAction,
    redoAction,
    setRangeAction,
    resetViewAction,
    loadImageAction,
    clearImageAction,
    firstZeroAction,
    firstConstantAction,
    lastZeroAction,
    lastConstantAction,
    lastLoopAction,
    lastLoopOffsetAction,
    lastFollowTangentAction,
    showTimeAction,
    showFramesAction,
    selectAllAction,
    selectNoneAction,
    deleteSelectedAction,
    unnamedAction,
    gridAction,
    framesAction,
    lastNodeBehaviourAction,
    startNodeBehaviourAction,
    horizontalAxisModeAction,
    showToolbarsAction,
    editorActionsCount
};

/// Of the actions of a group at most one is checked.
enum actionGroups : int
{
    noGroup,
    firstEndGroup,
    lastEndGroup,
    axisGroup,
    actionGroupsCount
};

struct ActionRow
{
    editorActions which;
    const char* objectName;
    const char* text;
    const char* whatsThis; ///< may be null
    const char* shortcut;  ///< may be null
    const char* slot;      ///< null: not connected
    actionGroups group;    ///< actions of a group are checkable
    bool checkedAtStart;
};

enum editorMenus : int
{
    fileMenu,
    editMenu,
    copySubMenu,
    pasteSubMenu,
    keysMenu,
    nodeTypeSubMenu,
    firstBehaviourSubMenu,
    lastBehaviourSubMenu,
    viewMenu,
    horizontalAxisSubMenu,
    fitViewSubMenu,
    fitViewToSelectionSubMenu,
    snapSubMenu,
    toolbarsSubMenu,
    insertMenu,
    unaryFunctionsSubMenu,
    binaryFunctionsSubMenu,
    ternaryFunctionsSubMenu,
    iVarsSubMenu,
    dVarsSubMenu,
    constantsSubMenu,
    editorMenusCount
};

enum menuEntryKinds : int
{
    separatorEntry,
    actionEntry,
    buttonEntry,
    subMenuEntry
};

/// One entry of a menu; `value` is one of editorActions, topToolButtons or editorMenus.
struct MenuEntry
{
    menuEntryKinds kind;
    int value;
};

struct MenuRow
{
    editorMenus which;
    const char* title;
    int iconAction; ///< the action that gives the menu's icon, or -1
    QList<MenuEntry> entries;
};

/// A sub-menu of the menu "Insert": its entries are texts, which aren't translated.
struct InsertRow
{
    editorMenus which;
    const char* title;
    QList<const char*> texts;
    const char* slot; ///< of the sub-menu's triggered(QAction*)
};

const QList<ActionRow>& actionRows();
/// Every menu but "Insert" and its sub-menus, and "Toolbars".
const QList<MenuRow>& menuRows();
/// The menus of the menu bar in their order.
const QList<editorMenus>& menuBarRows();
const QList<InsertRow>& insertRows();

/// The titles that the behaviour menus get with a change of language.
extern const char* const firstBehaviourTitle;
extern const char* const lastBehaviourTitle;

} // namespace curve_editor
