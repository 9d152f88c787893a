#pragma once

#include "commands/CurveCommandsManager.h"
#include "core/ZkTypes.h"
#include "curves/NodeStruct.h"
#include "ui_CurveEditorDialogBaseSetter.h"
#include "zk_curve_editor_export.h"

#include <QDialog>
#include <QItemSelection>
#include <QList>
#include <QModelIndex>
#include <QStringList>
#include <QVector>

#include <memory>
#include <string>
#include <vector>

class ControlMenu;
class ControlMenu2;
class CurveNode;
class CustomEditLine;
class FunctionEditor;
class FunctionFloatBase;
class QAction;
class QInputEvent;
class QLabel;
class QMenu;
class QMenuBar;
class QStyle;
class QToolBar;
class QToolButton;
class QTreeWidgetItem;
class SplineBase;

namespace curve_editor {
class Catalogue;
} // namespace curve_editor

/// The curve editor dialog, face of the library.
///
///     CurveEditor editor(parent, "path/to/icons");
///     editor.setFps(25);
///     editor.addCurve("body", "width", Qt::red, 0, &spline, &expression, 0, 10, true, true);
///     editor.show();
///
/// A host lends splines and the addresses of its expression pointers; it connects
/// curveHasChanged, and answers curveEditorUndo and curveEditorRedo by calling undo and redo of
/// the manager that getCmdManager gives it. Everything runs on the user-interface thread.
class ZK_CURVE_EDITOR_EXPORT CurveEditor : public QDialog, public Ui::CurveEditorDialogBaseSetter
{
    Q_OBJECT

public:
    using NodeStruct = curve_editor::NodeStruct;
    using MainNodeStruct = curve_editor::MainNodeStruct;

    enum curveEditorModes : int
    {
        DEFAULT = 0,
        SELECT = 1,
        SELECTING = 2,
        MOVE = 3,
        MOVING = 4,
        ADD = 5,
        DEL = 6,
        ADD2SEL = 7,
        ADDING2SEL = 8,
        ZOOM = 9,
        ZOOMING = 10,
        SCALE = 11,
        SNAP = 12
    };
    Q_ENUM(curveEditorModes)

    enum topToolBars : int
    {
        undoRedoToolBar = 0,
        panScaleToolBar = 1,
        snapToolBar = 2,
        copyPasteToolBar = 3,
        fitToolBar = 4,
        tangentsToolBar = 5,
        otherToolBar = 6,
        nodeTypeToolBar = 7,
        modeToolBar = 8
    };

    enum topToolBtnsMenus : int
    {
        copyMenu = 0,
        pasteMenu = 1,
        fitViewMenu = 2,
        fitViewToSelectionMenu = 3,
        snapMenu = 4
    };

    /// The value also numbers the button's icon file. 38 is unused.
    enum topToolButtons : int
    {
        undoButton = 0,
        redoButton = 1,
        panSelectionButton = 2,
        scaleSelectionButton = 3,
        snapToGridButton = 4,
        horizontalSnapButton = 5,
        verticalSnapButton = 6,
        copyButton = 7,
        copyCurveButton = 8,
        copySelectedKeysButton = 9,
        pasteButton = 10,
        pasteAndReplaceButton = 11,
        pasteCombinedButton = 12,
        pasteAndReplaceAfterTimelineButton = 13,
        pasteCombinedAfterTimelineButton = 14,
        breakTangentsButton = 15,
        unifyTangentsButton = 16,
        flatTangentsButton = 17,
        toggleTimeFramesButton = 18,
        showToolTipsButton = 19,
        showKeyPropertiesButton = 20,
        fitButton = 21,
        fitViewButton = 22,
        fitHorizontalViewButton = 23,
        fitVerticalViewButton = 24,
        fitSelectionButton = 25,
        fitViewToSelectionButton = 26,
        fitHorizontalViewToSelectionButton = 27,
        fitVerticalViewToSelectionButton = 28,
        centerViewToTimeLineButton = 29,
        setSelectedToTcbButton = 30,
        setSelectedToBezierButton = 31,
        setSelectedToLinearButton = 32,
        selectControlPointsButton = 33,
        moveSelectedButton = 34,
        addNewControlPointButton = 35,
        removeControlPointButton = 36,
        zoomToolButton = 37,
        pasteAndReplaceOnCurrentFrameButton = 39,
        pasteCombinedOnCurrentFrameButton = 40,
        setSelectedToSteppedButton = 41,
        topToolButtonsCount = 42
    };

    CurveEditor(QWidget* parent, const QString& iconsPath);
    ~CurveEditor() override;

    /// @name Catalogue: everything that the host has offered
    /// A curve is known by its dotted name: node, a point, curve. Unknown names make an operation
    /// do nothing and give null; null records and curves in an argument are passed over.
    /// @{
    /// Adds a node and its item in the tree, unless one of that name exists.
    void addNewMainNode(const QString& node);
    /// Lists a curve under a known node, unless a record answers to its name. The arguments are
    /// those of addCurve.
    void addNewNode(const QString& node, const QString& curve, const QColor& color,
                    float curveValue, SplineBase* spline, FunctionFloatBase** function,
                    float minValue, float maxValue, bool notifyHost);
    /// The host's way in: lists a curve, and its node on the way. `spline` and the variable that
    /// `function` points to stay the host's and outlive the editor's use of them; either may be
    /// null, and the spline may be destroyed at any time. Values are drawn and shown held between
    /// `minValue` and `maxValue`. With `selectByDefault` a curve that has a key or an expression
    /// enters the editing set and is selected alone. With `notifyHost` false its changes are not
    /// reported. A curve that is being edited already is only selected again.
    void addCurve(const QString& node, const QString& curve, const QColor& color, float curveValue,
                  SplineBase* spline, FunctionFloatBase** function, float minValue, float maxValue,
                  bool selectByDefault, bool notifyHost);
    MainNodeStruct* searchMainNode(const QString& node) const;
    /// The record of that dotted name. The search ends with null at the first record in the list
    /// whose name is a prefix of the one asked for, or has it as prefix: so a node or group gives
    /// null, and "n.width2" does while "n.width" stands ahead of it.
    NodeStruct* searchAllNodeList(const QString& dotName) const;
    /// The first record whose name has this parser form: lower case, blanks as underscores.
    NodeStruct* searchAllNodeListCurveName(const QString& parserName) const;
    /// The same as searchAllNodeList.
    NodeStruct* structFromDotName(const QString& dotName) const;
    NodeStruct* structFromCurve(CurveNode const* curve) const;
    /// One entry per curve or name, in order; an entry may be null.
    QList<NodeStruct*> structsFromCurves(const QList<CurveNode*>& curves) const;
    QList<NodeStruct*> structsFromDotNames(const QStringList& dotNames) const;
    /// The object of that name on the canvas, a curve or a group; owned by the canvas.
    CurveNode* curveFromDotName(const QString& dotName) const;
    CurveNode* curveFromStruct(NodeStruct const* record) const;
    QString dotName(NodeStruct const* record) const;
    QString dotName(CurveNode const* curve) const;
    /// One name per record, in order.
    QStringList dotNamesFromStructs(const QList<NodeStruct*>& records) const;
    /// Drops a curve from the list and the canvas. Its node stays.
    void removeCurve(const QString& node, const QString& curve);
    /// Drops a node with its curves and its item in the tree.
    void removeNode(const QString& node);
    /// Gives a curve a new name under its node; its object lives on. Ends with nothing selected if
    /// the curve is being edited. A new name that holds "###OLD###" hides the item in the tree.
    void renameCurve(const QString& node, const QString& oldCurve, const QString& newCurve);
    /// Gives a node and the curves under it a new name. The selection keeps the old names.
    void renameNode(const QString& oldNode, const QString& newNode);
    /// The first top-level item of the tree with exactly this text; owned by the tree.
    QTreeWidgetItem* getNodeItem(const QString& text) const;
    /// Rebuilds and repaints the curves.
    void updateCurves();
    /// Whether the expression of `curve`, directly or through other curves, reads `variable`;
    /// both in parser form. `culprit` gets the dotted name of the curve where that was found.
    bool checkDependencies(const QString& variable, const QString& curve, QString& culprit);
    /// @}

    /// @name Editing set: the curves that are on the canvas and in the tree
    /// @{
    /// A curve enters the set, with an existing object of its own or, for null, a new one. It is
    /// not selected by that.
    void setCurveEditableOn(NodeStruct* record);
    void setCurveEditableOn(NodeStruct* record, CurveNode* curve);
    /// A curve leaves the set, and the groups that are empty then.
    void setCurveEditableOff(NodeStruct* record);
    /// A listed curve enters the set and is selected alone.
    void setDefaultSelected(const QString& node, const QString& curve);
    void setDefaultSelected(const QString& node, const QString& curve, CurveNode* curveNode);
    /// Every curve leaves the set.
    void cleanSelecteds();
    void setColorToEditingNode(NodeStruct* record, const QColor& color);
    void setTreeVisible(bool visible);
    bool isTreeVisible() const;
    /// @}

    FunctionEditor* getFunctionEditor() const;
    /// The menu "Keys", which is the canvas's context menu as well.
    QMenu* keysMenu() const;

    double getFps() const;
    bool isModeFrames() const;
    bool isModeTime() const;
    void setNumberOfDecimals(const int& decimals);
    const int& getNumberOfDecimals() const;
    void setHSnapRadius(const double& radius);
    double getHSnapRadius() const;
    void setVSnapRadius(const double& radius);
    double getVSnapRadius() const;
    void setDefaultNodeType(const int& position);
    int getDefaultNodeTypePos() const;
    void setTooltipsDrag(const bool& on);
    bool isTooltipsDrag() const;
    void setDefaultBrokenTangent(const bool& on);
    bool isDefaultBrokenTangent() const;
    void setDefaultAddFunc(const bool& on);
    bool isDefaultAddFunc() const;
    void setIconSize(const int& size);
    int getIconSize() const;
    void setIconsPath(const QString& path);
    QString getIconsPath() const;

    void setCanvasColor(const QColor& color);
    void setSelectionColor(const QColor& color);
    void setControllerColor(const QColor& color);
    void setBrokenControllerColor(const QColor& color);
    void setControllerSelectedColor(const QColor& color);
    void setControlPointColor(const QColor& color);
    void setControlPointSelectedColor(const QColor& color);
    void setFrameFontColor(const QColor& color);
    void setFrameLinesColor(const QColor& color);
    void setFrameHLineColor(const QColor& color);
    void setFrameVLineColor(const QColor& color);
    void setTimeLineColor(const QColor& color);

    /// Part of the interface; the library neither writes nor reads it.
    static ControlMenu* canvasMenu;

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    /// Does nothing: Escape does not close the editor.
    void reject() override;

signals:
    /// Declared for hosts; never emitted.
    void closed();
    /// A curve has changed; what has changed stands in its spline and its expression slot.
    void curveHasChanged(QString& nodeName, QString& curveName);
    /// The user wants to undo or redo: the host calls the manager.
    void curveEditorUndo();
    void curveEditorRedo();

protected slots:
    virtual void languageChange();
    void canvasSelectionChanged(QStringList curveNames);

public slots:
    void setTimeLine(ZK_DOUBLE time);
    void setTimeLine(ZK_INT frame);
    void setFps(ZK_DOUBLE framesPerSecond);
    void setTimeRange(ZK_DOUBLE timeMin, ZK_DOUBLE timeMax);
    void setMinValue(ZK_DOUBLE value);
    void setMaxValue(ZK_DOUBLE value);
    void setShowTime();
    void setShowFrames();
    void switchFramesTime();
    void setPosX(ZK_DOUBLE valueX);
    void setFuncPosInfo(ZK_DOUBLE valueX, ZK_DOUBLE valueY, ZK_DOUBLE val);
    void rightButtonPressedEditingItem(QModelIndex index);
    void selectionChangedEditingItem(QItemSelection selected, QItemSelection deselected);
    /// Report the curves being edited, named ones, or those of records, then refresh the editor.
    /// Curves that do not report are left out.
    void emitSignalCurvesHaveChanged();
    void emitSignalCurvesHaveChanged(QStringList dotNames);
    void emitSignalCurvesHaveChanged(QList<CurveEditor::NodeStruct*> records);
    /// Reports one curve; refreshes nothing.
    void emitSignalCurveHasChanged(QString& nodeName, QString& curveName);
    void undo();
    void redo();
    void flatTangents();
    void breakTangents();
    void unifyTangents();
    void clearStack();
    void setUndoLevels(ZK_UINT levels);
    void setEnableUndo(ZK_BOOL enable);
    void resetViewport();
    void centerTimeline();
    void completeViewport();
    void completeViewportH();
    void completeViewportV();
    void completeViewportSel();
    void completeViewportSelH();
    void completeViewportSelV();
    void completeViewportBtn();
    void completeViewportHBtn();
    void completeViewportVBtn();
    void completeViewportSelBtn();
    void completeViewportSelHBtn();
    void completeViewportSelVBtn();
    void refreshEditor();
    void refreshCommandLine();
    void setFirstNodeZero();
    void setFirstNodeConstant();
    void setLastNodeZero();
    void setLastNodeConstant();
    void setLastNodeLoop();
    void setLastNodeLoopOffset();
    void setLastNodeFollowTangent();
    void changeNodeFirstType(int index);
    void changeNodeLastType(int index);
    void slotMenuEditingNodeColor();
    void slotMenuEditingNodeRemove();
    void slotRemoveFromEditing(QModelIndexList indexes);
    /// The selected curves leave the editing set, as a step of undo.
    void removeCurvesFromEditing();
    /// A curve, or all curves of a group or node, leaves the editing set; no step of undo.
    void removeCurveFromEditing(QString dotName);
    /// The present selection followed by these names.
    void addNodesToSelection(QString name);
    void addNodesToSelection(QStringList names);
    /// The selection becomes these dotted names; a group stands for its curves, an unknown name is
    /// kept but selects nothing.
    void selectNodes(QString name);
    void selectNodes(QStringList names);
    void switchSnapH();
    void switchSnapV();
    void switchSnap();
    void switchToolTips();
    void setDefaultButton(QAction* action, topToolButtons button);
    void setSelectedLinear();
    void setSelectedStep();
    void setSelectedBezier();
    void setSelectedTcb();
    /// The selected names in the order in which they were given.
    QStringList getSelection();
    /// The style of the tree; not owned.
    void setCheckListStyle(QStyle* style);
    curve_editor::CurveCommandsManager* getCmdManager();
    void selectAllKeys();
    void selectNoneKeys();
    void deleteSelectedKeys();
    void setCurrentMode(curveEditorModes newMode);
    CurveEditor::curveEditorModes getCurrentMode();
    void setUserMode(curveEditorModes newMode);
    CurveEditor::curveEditorModes getUserMode();
    void printMode(curveEditorModes theMode);
    void setSelectMode();
    void setMoveMode();
    void setAddKeyMode();
    void setDeleteKeyMode();
    void setZoomMode();
    void setDefaultMode();
    void showTopToolbarMenu();
    void setZoomModifier(QString mod);
    ZK_BOOL isZoomPressed(QInputEvent* e);
    QString getZoomModifier();
    void setSnapModifier(QString mod);
    ZK_BOOL isSnapPressed(QInputEvent* e);
    QString getSnapModifier();
    void setAddModifier(QString mod);
    ZK_BOOL isAddPressed(QInputEvent* e);
    QString getAddModifier();
    void setAdd2selModifier(QString mod);
    ZK_BOOL isAdd2selPressed(QInputEvent* e);
    QString getAdd2selModifier();

private:
    // Shell: CurveEditor.cpp, CurveEditorShell.cpp
    void preInit();
    void initMainMenu();
    CustomEditLine* newPositionField(const char* name);
    QLabel* newReadout(const char* name, const QString& text);
    void initCanvas();
    void connectWidgets();

    // Steps of refreshEditor: CurveEditorRefresh.cpp
    void refreshToolbars();
    void refreshSnapDisplay();
    void disableForEmptySet();
    void refreshFileAndExpression(const int& type, const bool& multi);
    void refreshEnabledStates(const int& type, const bool& multi, const bool& noKeys);
    void refreshBehaviours();
    bool hasSelectedKeys() const;
    void setItemEnabled(const int& kind, const int& value, const bool& enabled);
    void checkButton(const topToolButtons& which, const bool& checked);

    // Toolbars and menus: CurveEditorToolbars.cpp, CurveEditorMenus.cpp
    void initTopToolbar();
    void addTopToolbar(const QString& name, const topToolBars& which);
    void addTopToolbarMenu(const topToolButtons& button, const topToolBtnsMenus& menu);
    void addTopToolbarBtn(const char* text, const QString& toolTip, const char* slot,
                          const topToolButtons& which, QToolBar* toolbar);
    void addTopToolbarMenuBtn(const char* text, const QString& toolTip, const char* slot,
                              const topToolButtons& which, QMenu* menu);
    QAction* newButtonAction(const char* text, const QString& toolTip, const char* slot,
                             const topToolButtons& which, QWidget* parent);
    void addDropDown(const topToolButtons& button);
    void initToolButtonStates();
    void initActions();
    void initMenus();
    void addMenuEntry(QMenu* menu, const int& kind, const int& value);
    void initInsertMenu();

    // Modes: CurveEditorModes.cpp
    void setModifier(QString& target, const QString& value);
    bool isModifierPressed(QInputEvent* e, const QString& name) const;
    void toggleTool(const curveEditorModes& tool);
    QCursor buildCursor(const int& icon, const int& hotX, const int& hotY) const;

    // View: CurveEditorView.cpp
    void setMinTime(const double& time);
    void setMaxTime(const double& time);
    /// Sets canvasDirty and asks the canvas for a repaint.
    void repaintCanvas();
    void repaintAll();

    // Types of keys and ends: CurveEditorNodeTypes.cpp
    void doSetLastNode(const int& behaviour, const bool& isFirst);
    void doSetPointsType(const int& interpolation);

    // Catalogue: CurveEditorCatalogue.cpp
    std::string dumpNodeList() const;

    // Editing set: CurveEditorEditingSet.cpp
    void enterCanvas(NodeStruct* record, CurveNode* curve);
    void addTreeItems(const NodeStruct* record);
    void takeOutItem(QTreeWidgetItem* item);

    std::unique_ptr<curve_editor::Catalogue> catalogue; ///< mainNodes, allNodes and their index
    QStringList selectedDotNames;                       ///< the selection, in the order given
    bool selectionBusy = false;                         ///< re-entry guard of the selection

    curveEditorModes currentMode = DEFAULT;
    curveEditorModes userMode = DEFAULT;
    QString zoomModifier;
    QString snapModifier;
    QString addModifier;
    QString add2selModifier;

    int iconSize = 25; ///< pixels
    QString iconsPath;
    bool hasSettingsAction = false; ///< the settings action is not built
    int numberOfDecimals = 2;

    FunctionEditor* functionEditor = nullptr; ///< a child widget
    ControlMenu2* treeMenu = nullptr;         ///< a child
    CustomEditLine* posX = nullptr;           ///< children of mainMenu
    CustomEditLine* posY = nullptr;
    QLabel* frameLabel = nullptr;
    QLabel* timecodeLabel = nullptr;
    QLabel* valueLabel = nullptr;
    QLabel* functionLabel = nullptr;

    QVector<QToolButton*> toolButtons;   ///< by topToolButtons; 38 is null
    QVector<QToolBar*> topToolBarList;   ///< by topToolBars
    QVector<QAction*> topToolBarActions; ///< by topToolBars: shown or hidden
    QVector<QMenu*> topToolBtnMenus;     ///< by topToolBtnsMenus
    QVector<QAction*> toolButtonActions; ///< by topToolButtons: the action made for each
    QVector<QAction*> plainActions;      ///< by curve_editor::editorActions; children
    QVector<QMenu*> menus;               ///< by curve_editor::editorMenus
    QMenuBar* menuBar = nullptr;         ///< on mainMenu
    /// Buttons that hold the entries of drop-downs; never shown, without a parent.
    std::vector<std::unique_ptr<QToolButton>> menuEntryButtons;

    curve_editor::CurveCommandsManager manager;
};
