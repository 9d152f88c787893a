#include "editor/EnabledTable.h"

#include "editor/CurveEditor.h"
#include "editor/MenuTable.h"
#include "files/CurveType.h"

namespace curve_editor {

namespace {

using Editor = CurveEditor;

} // namespace

const QList<EditorItem>& emptySetItems()
{
    static const QList<EditorItem> items{
        {menuItem, fileMenu},
        {menuItem, keysMenu},
        {menuItem, copySubMenu},
        {menuItem, pasteSubMenu},
        {menuItem, fitViewSubMenu},
        {menuItem, fitViewToSelectionSubMenu},
        {menuItem, nodeTypeSubMenu},
        {menuItem, firstBehaviourSubMenu},
        {menuItem, lastBehaviourSubMenu},
        {menuItem, insertMenu},
        {buttonItem, Editor::copyButton},
        {buttonItem, Editor::pasteButton},
        {buttonItem, Editor::fitButton},
        {buttonItem, Editor::fitSelectionButton},
        {buttonActionItem, Editor::panSelectionButton},
        {buttonActionItem, Editor::scaleSelectionButton},
        {buttonActionItem, Editor::breakTangentsButton},
        {buttonActionItem, Editor::unifyTangentsButton},
        {buttonActionItem, Editor::flatTangentsButton},
        {buttonActionItem, Editor::setSelectedToTcbButton},
        {buttonActionItem, Editor::setSelectedToBezierButton},
        {buttonActionItem, Editor::setSelectedToLinearButton},
        {buttonActionItem, Editor::setSelectedToSteppedButton},
        {plainItem, loadCurveAction},
    };
    return items;
}

const QList<EnabledRow>& enabledRows()
{
    static const QList<EnabledRow> rows{
        {{buttonActionItem, Editor::copyCurveButton}, oneCurve},
        {{buttonActionItem, Editor::copySelectedKeysButton}, oneCurveAndSelectedKeys},
        {{menuItem, copySubMenu}, oneCurve},
        {{buttonActionItem, Editor::panSelectionButton}, selectedKeys},
        {{buttonActionItem, Editor::scaleSelectionButton}, selectedKeys},
        {{menuItem, fitViewSubMenu}, always},
        {{buttonActionItem, Editor::fitViewButton}, always},
        {{buttonActionItem, Editor::fitHorizontalViewButton}, always},
        {{buttonActionItem, Editor::fitVerticalViewButton}, splines},
        {{menuItem, fitViewToSelectionSubMenu}, selectedKeys},
        {{menuItem, nodeTypeSubMenu}, selectedKeys},
        {{buttonActionItem, Editor::setSelectedToTcbButton}, selectedKeys},
        {{buttonActionItem, Editor::setSelectedToBezierButton}, selectedKeys},
        {{buttonActionItem, Editor::setSelectedToLinearButton}, selectedKeys},
        {{buttonActionItem, Editor::setSelectedToSteppedButton}, selectedKeys},
        {{menuItem, pasteSubMenu}, always},
        {{buttonActionItem, Editor::breakTangentsButton}, selectedKeys},
        {{buttonActionItem, Editor::unifyTangentsButton}, selectedKeys},
        {{buttonActionItem, Editor::flatTangentsButton}, selectedKeys},
        {{plainItem, selectAllAction}, splines},
        {{plainItem, selectNoneAction}, splines},
        {{plainItem, deleteSelectedAction}, selectedKeys},
        {{menuItem, firstBehaviourSubMenu}, splines},
        {{menuItem, lastBehaviourSubMenu}, splines},
        {{buttonItem, Editor::copyButton}, oneCurve},
        {{buttonItem, Editor::fitButton}, always},
        {{buttonItem, Editor::fitSelectionButton}, selectedKeys},
        {{buttonItem, Editor::pasteButton}, always},
    };
    return rows;
}

bool EditingState::meets(conditions condition) const
{
    switch (condition) {
    case oneCurve:
        return !hasSeveralCurves;
    case selectedKeys:
        return hasSelectedKeys;
    case oneCurveAndSelectedKeys:
        return !hasSeveralCurves && hasSelectedKeys;
    case splines:
        return type != expressionCurve;
    default:
        return true;
    }
}

} // namespace curve_editor
