#include "editor/ToolbarTable.h"

namespace curve_editor {

namespace {

using Editor = CurveEditor;

ToolButtonRow row(Editor::topToolButtons which, const char* text, const char* toolTip,
                  const char* slot, checkableParts checkable = nothingCheckable,
                  bool visible = true)
{
    return {which, text, toolTip ? toolTip : text, slot, checkable, visible};
}

} // namespace

const QList<ToolBarRow>& toolBarRows()
{
    static const QList<ToolBarRow> rows{
        {Editor::modeToolBar, QT_TRANSLATE_NOOP("CurveEditor", "Mode"), true, 3, 27},
        {Editor::panScaleToolBar, QT_TRANSLATE_NOOP("CurveEditor", "Pan/Scale"), true, 2, 18},
        {Editor::copyPasteToolBar, QT_TRANSLATE_NOOP("CurveEditor", "Copy/Paste"), true, 2, 42},
        {Editor::undoRedoToolBar, QT_TRANSLATE_NOOP("CurveEditor", "Undo/Redo"), true, 2, 18},
        {Editor::fitToolBar, QT_TRANSLATE_NOOP("CurveEditor", "Fit"), true, 3, 50},
        {Editor::snapToolBar, QT_TRANSLATE_NOOP("CurveEditor", "Snap"), false, 1, 22},
        {Editor::nodeTypeToolBar, QT_TRANSLATE_NOOP("CurveEditor", "Node Type"), true, 4, 32},
        {Editor::tangentsToolBar, QT_TRANSLATE_NOOP("CurveEditor", "Tangents"), true, 3, 25},
        {Editor::otherToolBar, QT_TRANSLATE_NOOP("CurveEditor", "Other"), true, 3, 25},
    };
    return rows;
}

const QList<ToolBarButtons>& toolBarButtonRows()
{
    static const QList<ToolBarButtons> rows{
        {Editor::modeToolBar,
         {row(Editor::selectControlPointsButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Select Control Points"), nullptr,
              SLOT(setSelectMode()), actionCheckable, false),
          row(Editor::moveSelectedButton, QT_TRANSLATE_NOOP("CurveEditor", "Move Selected"),
              "Move Selected Control Points", SLOT(setMoveMode()), actionCheckable, false),
          row(Editor::addNewControlPointButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Add New Control Point"), nullptr,
              SLOT(setAddKeyMode()), actionCheckable),
          row(Editor::removeControlPointButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Remove Control Point"), nullptr,
              SLOT(setDeleteKeyMode()), actionCheckable),
          row(Editor::zoomToolButton, QT_TRANSLATE_NOOP("CurveEditor", "Zoom Tool"), nullptr,
              SLOT(setZoomMode()), actionCheckable)}},
        {Editor::panScaleToolBar,
         {row(Editor::panSelectionButton, QT_TRANSLATE_NOOP("CurveEditor", "Pan Selection"),
              nullptr, SLOT(setPanSelection())),
          row(Editor::scaleSelectionButton, QT_TRANSLATE_NOOP("CurveEditor", "Scale Selection"),
              nullptr, SLOT(setScaleSelection()))}},
        {Editor::copyPasteToolBar,
         {row(Editor::copyButton, QT_TRANSLATE_NOOP("CurveEditor", "Copy Curve"), nullptr,
              SLOT(copyBtn())),
          row(Editor::pasteButton, QT_TRANSLATE_NOOP("CurveEditor", "Paste and Replace"), nullptr,
              SLOT(pasteBtn()))}},
        {Editor::undoRedoToolBar,
         {row(Editor::undoButton, QT_TRANSLATE_NOOP("CurveEditor", "Undo"), "Undo Action",
              SLOT(undo())),
          row(Editor::redoButton, QT_TRANSLATE_NOOP("CurveEditor", "Redo"), "Redo Action",
              SLOT(redo()))}},
        {Editor::fitToolBar,
         {row(Editor::fitButton, QT_TRANSLATE_NOOP("CurveEditor", "Fit View"), nullptr,
              SLOT(completeViewportBtn())),
          row(Editor::fitSelectionButton, QT_TRANSLATE_NOOP("CurveEditor", "Fit View To Selection"),
              nullptr, SLOT(completeViewportSelBtn())),
          row(Editor::centerViewToTimeLineButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Center View To TimeLine"), nullptr,
              SLOT(centerTimeline()))}},
        {Editor::snapToolBar,
         {row(Editor::snapToGridButton, QT_TRANSLATE_NOOP("CurveEditor", "Snap to Grid"),
              "Toggle Snap To Grid", SLOT(switchSnap()), buttonCheckable)}},
        {Editor::nodeTypeToolBar,
         {row(Editor::setSelectedToTcbButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Set Selected to TCB"),
              "Set Selected Points Type to TCB", SLOT(setSelectedTcb())),
          row(Editor::setSelectedToBezierButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Set Selected to Bezier"),
              "Set Selected Points Type to Bezier", SLOT(setSelectedBezier())),
          row(Editor::setSelectedToLinearButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Set Selected to Linear"),
              "Set Selected Points Type to Linear", SLOT(setSelectedLinear())),
          row(Editor::setSelectedToSteppedButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Set Selected to Stepped"),
              "Set Selected Points Type to Stepped", SLOT(setSelectedStep()))}},
        {Editor::tangentsToolBar,
         {row(Editor::breakTangentsButton, QT_TRANSLATE_NOOP("CurveEditor", "Break Tangents"),
              nullptr, SLOT(breakTangents())),
          row(Editor::unifyTangentsButton, QT_TRANSLATE_NOOP("CurveEditor", "Unify Tangents"),
              nullptr, SLOT(unifyTangents())),
          row(Editor::flatTangentsButton, QT_TRANSLATE_NOOP("CurveEditor", "Flat Tangents"),
              nullptr, SLOT(flatTangents()))}},
        {Editor::otherToolBar,
         {row(Editor::toggleTimeFramesButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Toggle Time/Frames"), "Toggle Frames Or Time View",
              SLOT(switchFramesTime())),
          row(Editor::showToolTipsButton, QT_TRANSLATE_NOOP("CurveEditor", "Show ToolTips"),
              "Show Selected Keys Values as ToolTips", SLOT(switchToolTips()), buttonCheckable),
          row(Editor::showKeyPropertiesButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Show Key Properties"), nullptr,
              SLOT(showKeyProperties()), buttonCheckable)}},
    };
    return rows;
}

const QList<DropDownRow>& dropDownRows()
{
    static const QList<DropDownRow> rows{
        {Editor::copyMenu,
         Editor::copyButton,
         Editor::copySelectedKeysButton,
         {row(Editor::copySelectedKeysButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Copy Selected Keys"), nullptr, SLOT(copyKeysBtn())),
          row(Editor::copyCurveButton, QT_TRANSLATE_NOOP("CurveEditor", "Copy Curve"), nullptr,
              SLOT(copyBtn()))}},
        {Editor::pasteMenu,
         Editor::pasteButton,
         Editor::pasteCombinedButton,
         {row(Editor::pasteCombinedButton, QT_TRANSLATE_NOOP("CurveEditor", "Paste Combined"),
              nullptr, SLOT(pasteKeysBtn())),
          row(Editor::pasteCombinedAfterTimelineButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Paste Combined After Timeline"), nullptr,
              SLOT(pasteKeysOffsetBtn())),
          row(Editor::pasteCombinedOnCurrentFrameButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Paste Combined on Current Frame"), nullptr,
              SLOT(pasteKeysOnTimelineBtn())),
          row(Editor::pasteAndReplaceButton, QT_TRANSLATE_NOOP("CurveEditor", "Paste and Replace"),
              nullptr, SLOT(pasteBtn())),
          row(Editor::pasteAndReplaceAfterTimelineButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Paste and Replace After Timeline"), nullptr,
              SLOT(pasteOffsetBtn())),
          row(Editor::pasteAndReplaceOnCurrentFrameButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Paste and Replace on Current Frame"), nullptr,
              SLOT(pasteOnTimelineBtn()))}},
        {Editor::fitViewMenu,
         Editor::fitButton,
         Editor::fitViewButton,
         {row(Editor::fitViewButton, QT_TRANSLATE_NOOP("CurveEditor", "Fit View"), nullptr,
              SLOT(completeViewportBtn())),
          row(Editor::fitHorizontalViewButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Fit Horizontal View"), nullptr,
              SLOT(completeViewportHBtn())),
          row(Editor::fitVerticalViewButton, QT_TRANSLATE_NOOP("CurveEditor", "Fit Vertical View"),
              nullptr, SLOT(completeViewportVBtn()))}},
        {Editor::fitViewToSelectionMenu,
         Editor::fitSelectionButton,
         Editor::fitViewToSelectionButton,
         {row(Editor::fitViewToSelectionButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Fit View To Selection"), nullptr,
              SLOT(completeViewportSelBtn())),
          row(Editor::fitHorizontalViewToSelectionButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Fit Horizontal View To Selection"), nullptr,
              SLOT(completeViewportSelHBtn())),
          row(Editor::fitVerticalViewToSelectionButton,
              QT_TRANSLATE_NOOP("CurveEditor", "Fit Vertical View To Selection"), nullptr,
              SLOT(completeViewportSelVBtn()))}},
        {Editor::snapMenu,
         Editor::snapToGridButton,
         -1,
         {row(Editor::horizontalSnapButton, QT_TRANSLATE_NOOP("CurveEditor", "Horizontal Snap"),
              "Toggle Horizontal Snap To Grid", SLOT(switchSnapH()), actionCheckable),
          row(Editor::verticalSnapButton, QT_TRANSLATE_NOOP("CurveEditor", "Vertical Snap"),
              "Toggle Vertical Snap To Grid", SLOT(switchSnapV()), actionCheckable)}},
    };
    return rows;
}

QList<ToolButtonRow> allToolButtonRows()
{
    QList<ToolButtonRow> all;
    for (const ToolBarButtons& toolBar : toolBarButtonRows()) {
        all += toolBar.buttons;
    }
    for (const DropDownRow& dropDown : dropDownRows()) {
        all += dropDown.entries;
    }
    return all;
}

const DropDownRow* dropDownOf(CurveEditor::topToolButtons button)
{
    for (const DropDownRow& dropDown : dropDownRows()) {
        if (dropDown.button == button) {
            return &dropDown;
        }
    }
    return nullptr;
}

} // namespace curve_editor
