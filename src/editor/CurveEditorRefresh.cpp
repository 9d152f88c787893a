// What is enabled, checked and shown after each change.

#include "editor/CurveEditor.h"

#include "canvas/FunctionEditor.h"
#include "curves/CurveType.h"
#include "editor/MenuTable.h"
#include "graphs/SplineCurveGraph.h"
#include "widgets/CurveKeysDialog.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

using namespace curve_editor;

namespace {

enum itemKinds : int
{
    plainItem,
    menuItem,
    buttonActionItem,
    buttonItem
};

/// `value` is one of editorActions, editorMenus or topToolButtons.
struct Item
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
    Item item;
    conditions condition;
};

using Editor = CurveEditor;

/// Disabled while no curve is being edited.
const QList<Item>& emptySetItems()
{
    static const QList<Item> items{
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

/// What is enabled while curves are being edited. Buttons stand last: a button follows each change
/// of the action that it shows.
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

bool isMet(const conditions& condition, const int& type, const bool& multi, const bool& noKeys)
{
    switch (condition) {
    case oneCurve:
        return !multi;
    case selectedKeys:
        return !noKeys;
    case oneCurveAndSelectedKeys:
        return !multi && !noKeys;
    case splines:
        return type != expressionCurve;
    default:
        return true;
    }
}

struct BehaviourRow
{
    SplineBase::nodeType behaviour;
    int first; ///< the action of the first end, or -1
    int last;
};

const BehaviourRow behaviourRows[] = {
    {SplineBase::zero, firstZeroAction, lastZeroAction},
    {SplineBase::constant, firstConstantAction, lastConstantAction},
    {SplineBase::loop, -1, lastLoopAction},
    {SplineBase::loopOffset, -1, lastLoopOffsetAction},
    {SplineBase::followTangent, -1, lastFollowTangentAction},
};

} // namespace

void CurveEditor::refreshEditor()
{
    refreshToolbars();
    refreshSnapDisplay();
    CanvasFunctionBase& canvas = functionEditor->canvas();
    const auto curveCount = canvas.editingCurves().size();
    if (curveCount == 0) {
        disableForEmptySet();
        return;
    }
    const int type = canvas.editingType();
    const bool multi = curveCount > 1;
    const bool noKeys = type == expressionCurve || !hasSelectedKeys();
    refreshFileAndExpression(type, multi);
    refreshEnabledStates(type, multi, noKeys);
    if (hasKeys(type)) {
        refreshBehaviours();
    } else {
        functionEditor->keysDialog()->enableKeyFields(false);
    }
    functionEditor->canvasDirty = true;
    functionEditor->refreshKeysDialog();
    canvas.updateCanvas();
}

void CurveEditor::refreshToolbars()
{
    for (int which = 0; which < topToolBarList.size() && which < topToolBarActions.size();
         ++which) {
        topToolBarList[which]->setVisible(topToolBarActions[which]->isChecked());
    }
}

void CurveEditor::refreshSnapDisplay()
{
    const CanvasFunctionBase& canvas = functionEditor->canvas();
    toolButtonActions[horizontalSnapButton]->setChecked(canvas.horizontalSnap);
    toolButtonActions[verticalSnapButton]->setChecked(canvas.verticalSnap);
    checkButton(snapToGridButton, canvas.horizontalSnap && canvas.verticalSnap);
    checkButton(showToolTipsButton, canvas.toolTipsOn);
}

void CurveEditor::disableForEmptySet()
{
    for (const Item& item : emptySetItems()) {
        setItemEnabled(item.kind, item.value, false);
    }
    deleteCurve->setEnabled(false);
    addToSpline->setEnabled(false);
    commandLine->setEnabled(false);
    enableBehaviourFields(false);
    functionEditor->keysDialog()->enableKeyFields(false);
}

void CurveEditor::refreshFileAndExpression(const int& type, const bool& multi)
{
    setItemEnabled(menuItem, fileMenu, true);
    setItemEnabled(menuItem, curve_editor::keysMenu, true);
    setItemEnabled(menuItem, insertMenu, true);
    commandLine->setEnabled(true);

    deleteCurve->setEnabled(type != splineCurve);
    addToSpline->setEnabled(type != splineCurve && type != mixedCurves);
    addToSpline->setChecked(type == splinePlusExpressionCurve);

    setItemEnabled(plainItem, loadCurveAction, true);
    setItemEnabled(plainItem, saveCurveAction, true);
    plainActions[saveCurveAction]->setText(
        tr("Save curve%1...").arg(multi ? QString("s") : QString()));
}

void CurveEditor::refreshEnabledStates(const int& type, const bool& multi, const bool& noKeys)
{
    for (const EnabledRow& row : enabledRows()) {
        setItemEnabled(row.item.kind, row.item.value, isMet(row.condition, type, multi, noKeys));
    }
    enableBehaviourFields(type != expressionCurve);
}

void CurveEditor::enableBehaviourFields(const bool& on)
{
    functionEditor->keysDialog()->nodeFirst->setEnabled(on);
    functionEditor->keysDialog()->nodeLast->setEnabled(on);
}

/// The action of the present behaviour is toggled, not checked: at each second refresh it stands
/// unchecked. The combo boxes show the truth; a first behaviour that they do not offer leaves
/// theirs blank.
void CurveEditor::refreshBehaviours()
{
    const SplineBase* const spline = functionEditor->canvas().firstSpline();
    if (!spline) {
        return;
    }
    for (const BehaviourRow& row : behaviourRows) {
        if (row.first >= 0 && spline->firstNodeType() == row.behaviour) {
            plainActions[row.first]->toggle();
        }
        if (spline->lastNodeType() == row.behaviour) {
            plainActions[row.last]->toggle();
        }
    }
    functionEditor->keysDialog()->nodeFirst->setCurrentIndex(spline->firstNodeType());
    functionEditor->keysDialog()->nodeLast->setCurrentIndex(spline->lastNodeType());
}

bool CurveEditor::hasSelectedKeys() const
{
    for (const SplineCurveGraph* const container : functionEditor->canvas().keyContainers()) {
        if (container && container->selection().hasSelection()) {
            return true;
        }
    }
    return false;
}

void CurveEditor::setItemEnabled(const int& kind, const int& value, const bool& enabled)
{
    switch (kind) {
    case plainItem:
        plainActions[value]->setEnabled(enabled);
        break;
    case menuItem:
        menus[value]->setEnabled(enabled);
        break;
    case buttonActionItem:
        toolButtonActions[value]->setEnabled(enabled);
        break;
    case buttonItem:
        toolButtons[value]->setEnabled(enabled);
        break;
    default:
        break;
    }
}

/// On the button alone, whose action can't be checked. Each change of that action makes the button
/// uncheckable again.
void CurveEditor::checkButton(const topToolButtons& which, const bool& checked)
{
    toolButtons[which]->setCheckable(true);
    toolButtons[which]->setChecked(checked);
}
