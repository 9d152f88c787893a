#include "editor/MenuTable.h"

#include "editor/CurveEditor.h"

namespace curve_editor {

namespace {

using Editor = CurveEditor;

const MenuEntry separator{separatorEntry, 0};

MenuEntry entry(editorActions action)
{
    return {actionEntry, action};
}

MenuEntry entry(Editor::topToolButtons button)
{
    return {buttonEntry, button};
}

MenuEntry entry(editorMenus menu)
{
    return {subMenuEntry, menu};
}

ActionRow command(editorActions which, const char* objectName, const char* text, const char* slot,
                  const char* shortcut = nullptr, const char* whatsThis = nullptr)
{
    return {which, objectName, text, whatsThis, shortcut, slot, noGroup, false};
}

ActionRow choice(editorActions which, const char* objectName, const char* text, const char* slot,
                 actionGroups group, const char* shortcut = nullptr, bool checkedAtStart = false)
{
    return {which, objectName, text, nullptr, shortcut, slot, group, checkedAtStart};
}

} // namespace

const char* const firstBehaviourTitle = QT_TRANSLATE_NOOP("CurveEditor", "Start Node Behaviour");
const char* const lastBehaviourTitle = QT_TRANSLATE_NOOP("CurveEditor", "Last Node Behaviour");

const QList<ActionRow>& actionRows()
{
    static const QList<ActionRow> rows{
        command(resetAllCurvesAction, "resetAllCurves",
                QT_TRANSLATE_NOOP("CurveEditor", "Reset All Curves"), SLOT(resetAllCheckedF()),
                nullptr, QT_TRANSLATE_NOOP("CurveEditor", "Reset all the loaded curves")),
        command(resetSelectedCurvesAction, "resetSelectedCurves",
                QT_TRANSLATE_NOOP("CurveEditor", "Reset Selected Curves"), SLOT(resetSelectedF()),
                nullptr, QT_TRANSLATE_NOOP("CurveEditor", "Reset the current editing curves")),
        command(loadCurveAction, "loadCurve", QT_TRANSLATE_NOOP("CurveEditor", "Load Curve..."),
                SLOT(loadFile()), nullptr,
                QT_TRANSLATE_NOOP("CurveEditor", "Open previously saved curve")),
        command(saveCurveAction, "saveCurve", QT_TRANSLATE_NOOP("CurveEditor", "Save Curve..."),
                SLOT(saveFile()), nullptr,
                QT_TRANSLATE_NOOP("CurveEditor", "Save the current curve")),
        command(undoAction, "undo", QT_TRANSLATE_NOOP("CurveEditor", "Undo"), SLOT(undo())),
        command(redoAction, "redo", QT_TRANSLATE_NOOP("CurveEditor", "Redo"), SLOT(redo())),
        command(setRangeAction, "setRange", QT_TRANSLATE_NOOP("CurveEditor", "Set Range"),
                SLOT(setRange()), "Alt+s"),
        command(resetViewAction, "resetView", QT_TRANSLATE_NOOP("CurveEditor", "Reset View"),
                SLOT(resetViewport())),
        command(loadImageAction, "loadImage", QT_TRANSLATE_NOOP("CurveEditor", "Load image"),
                SLOT(loadImage()), "Alt+i"),
        command(clearImageAction, "clearImage", QT_TRANSLATE_NOOP("CurveEditor", "Clear image"),
                SLOT(clearImage())),
        choice(firstZeroAction, "firstZero", QT_TRANSLATE_NOOP("CurveEditor", "Zero"),
               SLOT(setFirstNodeZero()), firstEndGroup),
        choice(firstConstantAction, "firstConstant", QT_TRANSLATE_NOOP("CurveEditor", "Constant"),
               SLOT(setFirstNodeConstant()), firstEndGroup),
        choice(lastZeroAction, "lastZero", QT_TRANSLATE_NOOP("CurveEditor", "Zero"),
               SLOT(setLastNodeZero()), lastEndGroup),
        choice(lastConstantAction, "lastConstant", QT_TRANSLATE_NOOP("CurveEditor", "Constant"),
               SLOT(setLastNodeConstant()), lastEndGroup),
        choice(lastLoopAction, "lastLoop", QT_TRANSLATE_NOOP("CurveEditor", "Loop"),
               SLOT(setLastNodeLoop()), lastEndGroup),
        choice(lastLoopOffsetAction, "lastLoopOffset",
               QT_TRANSLATE_NOOP("CurveEditor", "Loop offset"), SLOT(setLastNodeLoopOffset()),
               lastEndGroup),
        choice(lastFollowTangentAction, "lastFollowTangent",
               QT_TRANSLATE_NOOP("CurveEditor", "Follow tangent"), SLOT(setLastNodeFollowTangent()),
               lastEndGroup),
        choice(showTimeAction, "showTime", QT_TRANSLATE_NOOP("CurveEditor", "Show time"),
               SLOT(setShowTime()), axisGroup, "Alt+t"),
        choice(showFramesAction, "showFrames", QT_TRANSLATE_NOOP("CurveEditor", "Show frames"),
               SLOT(setShowFrames()), axisGroup, "Alt+f", true),
        command(selectAllAction, "selectAll", QT_TRANSLATE_NOOP("CurveEditor", "Select All"),
                SLOT(selectAllKeys())),
        command(selectNoneAction, "selectNone", QT_TRANSLATE_NOOP("CurveEditor", "Select None"),
                SLOT(selectNoneKeys())),
        command(deleteSelectedAction, "deleteSelected",
                QT_TRANSLATE_NOOP("CurveEditor", "Delete Selected"), SLOT(deleteSelectedKeys())),
        command(unnamedAction, "unnamed", QT_TRANSLATE_NOOP("CurveEditor", "Unnamed"), nullptr),
        command(gridAction, "grid", QT_TRANSLATE_NOOP("CurveEditor", "Grid"), nullptr),
        command(framesAction, "frames", QT_TRANSLATE_NOOP("CurveEditor", "Frames"), nullptr),
        command(lastNodeBehaviourAction, "lastNodeBehaviour",
                QT_TRANSLATE_NOOP("CurveEditor", "Last Node Behaviour"), nullptr),
        command(startNodeBehaviourAction, "startNodeBehaviour",
                QT_TRANSLATE_NOOP("CurveEditor", "Start Node Behaviour"), nullptr),
        command(horizontalAxisModeAction, "horizontalAxisMode",
                QT_TRANSLATE_NOOP("CurveEditor", "Horizontal axis mode"), nullptr),
        command(showToolbarsAction, "showToolbars",
                QT_TRANSLATE_NOOP("CurveEditor", "Show toolbars"), nullptr),
    };
    return rows;
}

const QList<editorMenus>& menuBarRows()
{
    static const QList<editorMenus> rows{fileMenu, editMenu, keysMenu, viewMenu};
    return rows;
}

const QList<MenuRow>& menuRows()
{
    static const QList<MenuRow> rows{
        {fileMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "File"),
         -1,
         {entry(resetAllCurvesAction), entry(resetSelectedCurvesAction), separator,
          entry(loadCurveAction), entry(saveCurveAction)}},
        {editMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Edit"),
         -1,
         {entry(undoAction), entry(redoAction), separator, entry(copySubMenu), entry(pasteSubMenu),
          separator, entry(Editor::selectControlPointsButton), entry(Editor::moveSelectedButton),
          entry(Editor::addNewControlPointButton), entry(Editor::removeControlPointButton),
          entry(Editor::zoomToolButton), separator, entry(Editor::panSelectionButton),
          entry(Editor::scaleSelectionButton)}},
        {copySubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Copy"),
         -1,
         {entry(Editor::copySelectedKeysButton), entry(Editor::copyCurveButton)}},
        {pasteSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Paste"),
         -1,
         {entry(Editor::pasteCombinedButton), entry(Editor::pasteCombinedAfterTimelineButton),
          entry(Editor::pasteCombinedOnCurrentFrameButton), entry(Editor::pasteAndReplaceButton),
          entry(Editor::pasteAndReplaceAfterTimelineButton),
          entry(Editor::pasteAndReplaceOnCurrentFrameButton)}},
        {keysMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Keys"),
         -1,
         {entry(selectAllAction), entry(selectNoneAction), entry(deleteSelectedAction), separator,
          entry(nodeTypeSubMenu), entry(firstBehaviourSubMenu), entry(lastBehaviourSubMenu),
          separator, entry(Editor::breakTangentsButton), entry(Editor::unifyTangentsButton),
          entry(Editor::flatTangentsButton), separator, entry(Editor::showKeyPropertiesButton)}},
        {nodeTypeSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Node Type"),
         -1,
         {entry(Editor::setSelectedToTcbButton), entry(Editor::setSelectedToBezierButton),
          entry(Editor::setSelectedToLinearButton), entry(Editor::setSelectedToSteppedButton)}},
        {firstBehaviourSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Pre-Behaviour"),
         startNodeBehaviourAction,
         {entry(firstZeroAction), entry(firstConstantAction)}},
        {lastBehaviourSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Post-Behaviour"),
         lastNodeBehaviourAction,
         {entry(lastZeroAction), entry(lastConstantAction), entry(lastLoopAction),
          entry(lastLoopOffsetAction), entry(lastFollowTangentAction)}},
        {viewMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "View"),
         -1,
         {entry(Editor::showKeyPropertiesButton), entry(Editor::showToolTipsButton),
          entry(horizontalAxisSubMenu), separator, entry(setRangeAction), entry(resetViewAction),
          separator, entry(Editor::centerViewToTimeLineButton), entry(fitViewSubMenu),
          entry(fitViewToSelectionSubMenu), entry(snapSubMenu), separator, entry(loadImageAction),
          entry(clearImageAction), separator, entry(toolbarsSubMenu)}},
        {horizontalAxisSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Horizontal axis"),
         horizontalAxisModeAction,
         {entry(showTimeAction), entry(showFramesAction)}},
        {fitViewSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Fit View"),
         -1,
         {entry(Editor::fitViewButton), entry(Editor::fitHorizontalViewButton),
          entry(Editor::fitVerticalViewButton)}},
        {fitViewToSelectionSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Fit View to Selection"),
         -1,
         {entry(Editor::fitViewToSelectionButton),
          entry(Editor::fitHorizontalViewToSelectionButton),
          entry(Editor::fitVerticalViewToSelectionButton)}},
        {snapSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Snap to Grid"),
         -1,
         {entry(Editor::horizontalSnapButton), entry(Editor::verticalSnapButton)}},
    };
    return rows;
}

const QList<InsertRow>& insertRows()
{
    static const QList<InsertRow> rows{
        {unaryFunctionsSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Unary functions"),
         {"cos",  "sin",  "tan",  "exp",  "log",  "log10", "rnd",   "abs", "sqrt",  "acos",
          "asin", "atan", "cosh", "sinh", "tanh", "ceil",  "floor", "j0",  "logj1", "not"},
         SLOT(insertUnaryFunc(QAction*))},
        {binaryFunctionsSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Binary functions"),
         // In a menu's text two ampersands show one.
         {"+", "-", "*", "/", "^", ">", "<", "&&", "|", "=", "min", "max"},
         SLOT(insertBinaryFunc(QAction*))},
        {ternaryFunctionsSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Ternary functions"),
         {"if"},
         SLOT(insertTernaryFunc(QAction*))},
        {iVarsSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "I vars"),
         {"t", "f", "fps"},
         SLOT(insertIVarFunc(QAction*))},
        {dVarsSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "D vars"),
         {}, // whenever it opens
         SLOT(insertDVarFunc(QAction*))},
        {constantsSubMenu,
         QT_TRANSLATE_NOOP("CurveEditor", "Constants"),
         {"PI", "e", "EPSILON"},
         SLOT(insertIVarFunc(QAction*))},
    };
    return rows;
}

} // namespace curve_editor
