#pragma once

#include <QList>

namespace curve_editor {

enum itemKinds : int
{
    plainItem,
    menuItem,
    buttonActionItem,
    buttonItem
};

/// What of the editor's menus and toolbars is enabled as one. `value` is one of editorActions,
/// editorMenus or topToolButtons.
struct EditorItem
{
    itemKinds kind;
    int value;
};

/// What an item needs to be enabled.
enum conditions : int
{
    always,
    oneCurve,
    selectedKeys,
    oneCurveAndSelectedKeys,
    splines
};

struct EnabledRow
{
    EditorItem item;
    conditions condition;
};

/// What the curves being edited have to offer.
struct EditingState
{
    int type; ///< of all of them together, as CurveType.h has it
    bool hasSeveralCurves;
    bool hasSelectedKeys;

    bool meets(conditions condition) const;
};

/// Disabled while no curve is being edited.
const QList<EditorItem>& emptySetItems();
/// What is enabled while curves are being edited. Buttons stand last: a button follows each change
/// of the action that it shows.
const QList<EnabledRow>& enabledRows();

} // namespace curve_editor
