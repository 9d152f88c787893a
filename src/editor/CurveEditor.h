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

#include <memory>
#include <string>

class ControlMenu;
class CurveNode;
class CustomEditLine;
class FunctionEditor;
class FunctionFloatBase;
class ParserScope;
class QAction;
class QInputEvent;
class QMenu;
class QStyle;
class QTreeWidgetItem;
class SplineBase;

namespace curve_editor {
class CurveEditorPrivate;
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

    /// What a mouse gesture on the canvas does. The user mode is the tool chosen; the current mode
    /// is what is going on at the moment.
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

    /// The movable toolbars; on screen they stand in another order.
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

    /// The drop-downs of toolbar buttons.
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

    /// `iconsPath` is the folder of the pictures "curveeditor000.png", "curveeditor000-d.png"
    /// (disabled) and so on; one that is missing gives an empty icon. `parent` may be null.
    CurveEditor(QWidget* parent, const QString& iconsPath);
    /// Frees canvas, commands and widgets; splines and expressions stay the host's.
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
    /// goes on the canvas and is selected alone. With `notifyHost` false its changes are not
    /// reported. A curve that is on the canvas already is only selected again.
    void addCurve(const QString& node, const QString& curve, const QColor& color, float curveValue,
                  SplineBase* spline, FunctionFloatBase** function, float minValue, float maxValue,
                  bool selectByDefault, bool notifyHost);
    /// The record of a node. Records, of nodes and of curves, live as long as the editor.
    MainNodeStruct* searchMainNode(const QString& node) const;
    /// The record of that dotted name. The search ends with null at the first record in the list
    /// whose name is a prefix of the one asked for, or has it as prefix: so a node or group gives
    /// null, and "n.width2" does while "n.width" stands ahead of it.
    NodeStruct* searchAllNodeList(const QString& dotName) const;
    /// The first record whose name has this parser form: lower case, blanks as underscores.
    NodeStruct* searchAllNodeListCurveName(const QString& parserName) const;
    /// Whose names the expressions that are typed here read first, before those that hosts have
    /// registered: those of this editor's curves. Lives as long as the editor.
    const ParserScope* parserScope() const;
    /// The same as searchAllNodeList.
    NodeStruct* structFromDotName(const QString& dotName) const;
    NodeStruct* structFromCurve(CurveNode const* curve) const;
    /// One entry per curve or name, in order; an entry may be null.
    QList<NodeStruct*> structsFromCurves(const QList<CurveNode*>& curves) const;
    QList<NodeStruct*> structsFromDotNames(const QStringList& dotNames) const;
    /// The object of that name on the canvas, a curve or a group; owned by the canvas, which may
    /// free it once it has left. Not to be kept: ask by name again.
    CurveNode* curveFromDotName(const QString& dotName) const;
    CurveNode* curveFromStruct(NodeStruct const* record) const;
    /// The dotted name; empty for null.
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
    /// Takes keys and expression away from a curve that stays listed, as a step of undo. The slot
    /// is the record's, whatever is passed.
    void deleteCurveAndExp(const QString& node, const QString& curve, FunctionFloatBase** slot);
    /// Whether the expression of `curve`, directly or through other curves, reads `variable`;
    /// both in parser form. `culprit` gets the dotted name of the curve where that was found.
    bool checkDependencies(const QString& variable, const QString& curve, QString& culprit);
    /// For hosts that drop an expression. While the editor is visible the curve on the canvas
    /// loses its expression, whose spline is then no longer added, and without a curve of that
    /// name nothing is deleted. While it is hidden the slot is emptied; a null one is passed over.
    void deleteExpression(const QString& node, const QString& curve, FunctionFloatBase** slot);
    /// @}

    /// @name The curves on the canvas, each with an object there and an item in the tree
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
    /// Colours a curve in the record and on the canvas.
    void setColorToEditingNode(NodeStruct* record, const QColor& color);
    void setTreeVisible(bool visible);
    bool isTreeVisible() const;
    /// @}

    /// The canvas widget; never null, owned by the editor.
    FunctionEditor* getFunctionEditor() const;
    /// The number fields of time and value on the menu bar, twins of those of the key dialog; owned
    /// by the editor.
    CustomEditLine* positionX() const;
    CustomEditLine* positionY() const;
    /// The menu "Keys", which is the canvas's context menu as well.
    QMenu* keysMenu() const;

    /// @name Options
    /// @{
    /// Frames per second.
    double getFps() const;
    /// Whether the horizontal axis is labelled in frames, or else in seconds.
    bool isModeFrames() const;
    bool isModeTime() const;
    /// Digits behind the point in number fields, of which a negative number gives none, and in
    /// the read-out of the pointer.
    void setNumberOfDecimals(const int& decimals);
    const int& getNumberOfDecimals() const;
    /// How near to a grid line a dragged key snaps, as a share of the grid's step.
    void setHSnapRadius(const double& radius);
    double getHSnapRadius() const;
    void setVSnapRadius(const double& radius);
    double getVSnapRadius() const;
    /// Interpolation of new keys: 0 TCB, 1 Bezier, 2 linear, 3 stepped. Any other is passed over.
    void setDefaultNodeType(const int& position);
    int getDefaultNodeTypePos() const;
    /// Whether tool tips show values while keys are dragged.
    void setTooltipsDrag(const bool& on);
    bool isTooltipsDrag() const;
    /// Whether the tangents of new keys are broken.
    void setDefaultBrokenTangent(const bool& on);
    bool isDefaultBrokenTangent() const;
    /// Whether a new expression is added to its spline.
    void setDefaultAddFunc(const bool& on);
    bool isDefaultAddFunc() const;
    /// Side of the toolbars' icons in pixels, and their folder. The toolbars keep what they were
    /// built with; cursors come from the folder set last.
    void setIconSize(const int& size);
    int getIconSize() const;
    void setIconsPath(const QString& path);
    QString getIconsPath() const;
    /// The folder in which the dialogs of curve files open, with a "/" at its end; the choice of a
    /// single file sets it anew. Empty at first.
    void setCurrentDir(const QString& folder);
    /// @}

    /// @name Colours
    /// None asks for a repaint. The colours of handles (controllers) and keys (control points) are
    /// shared by all editors of the process.
    /// @{
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
    /// @}

    /// Part of the interface; the library neither writes nor reads it.
    static ControlMenu* canvasMenu;

    bool event(QEvent* event) override;
    /// Keys go to the canvas first.
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    /// Always accepts.
    void closeEvent(QCloseEvent* event) override;
    /// Does nothing: Escape does not close the editor.
    void reject() override;

signals:
    /// Declared for hosts; never emitted.
    void closed();
    /// A curve has changed; what has changed stands in its spline and its expression slot. A slot
    /// may change curves, undo, or close the editor; to delete it, it calls deleteLater.
    void curveHasChanged(QString& nodeName, QString& curveName);
    /// The user wants to undo or redo: the host calls the manager.
    void curveEditorUndo();
    void curveEditorRedo();

protected slots:
    /// Gives the actions their texts and shortcuts anew.
    virtual void languageChange();
    void canvasSelectionChanged(QStringList curveNames);
    /// Fills the menu of d-vars with the parser's dotted names.
    void populateDVarMenu();

public slots:
    /// Moves the time line to a time in seconds, or to a frame.
    void setTimeLine(ZK_DOUBLE time);
    void setTimeLine(ZK_INT frame);
    /// Frames per second; not checked, as no value of these setters is.
    void setFps(ZK_DOUBLE framesPerSecond);
    /// The visible range, in seconds and in units of value.
    void setTimeRange(ZK_DOUBLE timeMin, ZK_DOUBLE timeMax);
    void setMinValue(ZK_DOUBLE value);
    void setMaxValue(ZK_DOUBLE value);
    /// Label the horizontal axis in seconds, in frames, or in the other of the two.
    void setShowTime();
    void setShowFrames();
    void switchFramesTime();
    /// Shows a time, given in seconds, in the position field.
    void setPosX(ZK_DOUBLE valueX);
    /// Reads out the pointer: its time in seconds, its value, and the first curve's value there.
    void setFuncPosInfo(ZK_DOUBLE valueX, ZK_DOUBLE valueY, ZK_DOUBLE val);
    void rightButtonPressedEditingItem(QModelIndex index);
    void selectionChangedEditingItem(QItemSelection selected, QItemSelection deselected);
    /// Sets the text of the expression line on the curves being edited, as a step of undo; a blank
    /// text deletes their expressions. A text with an error changes nothing and is marked in the
    /// line after a box for each curve.
    void executeCommand();
    /// Lets the user choose a curve file, and reads it into all curves being edited as a step of
    /// undo.
    void loadFile();
    /// Lets the user choose where the curves being edited are saved: a file for one, in the format
    /// of its typed extension and under its path in lower case; a folder for several, in XML.
    void saveFile();
    /// Report the curves being edited, named ones, or those of records, then refresh the editor.
    /// Curves that do not report are left out.
    void emitSignalCurvesHaveChanged();
    void emitSignalCurvesHaveChanged(QStringList dotNames);
    void emitSignalCurvesHaveChanged(QList<CurveEditor::NodeStruct*> records);
    /// Reports one curve; refreshes nothing.
    void emitSignalCurveHasChanged(QString& nodeName, QString& curveName);
    /// Deletes the expressions of the curves being edited, as a step of undo.
    void deleteCurveClicked();
    /// Empty all curves on the canvas, or those being edited, as a step of undo.
    void resetAllCheckedF();
    void resetSelectedF();
    /// For hosts that have edited the curves being edited themselves: they are drawn anew.
    void setTcb();
    void setExpression();
    /// Ask the host by curveEditorUndo and curveEditorRedo; change nothing themselves.
    void undo();
    void redo();
    /// The clipboard, which is this editor's own. Copies the only curve being edited, or its
    /// selected keys. Pastes onto all curves being edited as one step of undo: in place of their
    /// keys, or (Keys) beside them, at the times copied, moved by the time line's (Offset), or with
    /// the first key on the time line (OnTimeline). The forms ending in Btn make their entry the
    /// one that the toolbar's button repeats.
    void copy();
    void copyKeys();
    void paste();
    void pasteOffset();
    void pasteOnTimeline();
    void pasteKeys();
    void pasteKeysOffset();
    void pasteKeysOnTimeline();
    void copyBtn();
    void copyKeysBtn();
    void pasteBtn();
    void pasteOffsetBtn();
    void pasteOnTimelineBtn();
    void pasteKeysBtn();
    void pasteKeysOffsetBtn();
    void pasteKeysOnTimelineBtn();
    /// On the selected keys, each as a step of undo.
    void flatTangents();
    void breakTangents();
    void unifyTangents();
    /// Forgets all steps of undo and redo.
    void clearStack();
    /// The most steps that are kept, 10 at first; 0 keeps none.
    void setUndoLevels(ZK_UINT levels);
    /// Switched off, undo forgets its steps and takes no new ones.
    void setEnableUndo(ZK_BOOL enable);
    /// Each asks the user by a modal dialog: for the visible range, for factors of time and value
    /// of the selected keys, for an offset of them in time and value. What is no number counts
    /// as 0. The editor may be deleted while a dialog runs.
    void setRange();
    void setScaleSelection();
    void setPanSelection();
    /// The visible range and the mode of the axis as in a new editor.
    void resetViewport();
    /// Asks the user, in the same manner, for snap radii and the defaults of new keys.
    void setOptions();
    /// Moves the visible range until the time line is in its middle.
    void centerTimeline();
    /// Fit the view to the curves being edited, or to the selected keys (Sel): both axes, the
    /// horizontal (H) or the vertical one (V). The forms ending in Btn make their entry the one
    /// that the toolbar's button repeats.
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
    /// The picture behind the curves: one that the user chooses, or none.
    void loadImage();
    void clearImage();
    /// Brings toolbars, menus and buttons up to date with the curves being edited. Each call
    /// toggles the actions of the present behaviours.
    void refreshEditor();
    /// Shows the expression of the curves being edited.
    void refreshCommandLine();
    /// Behaviours of the curves being edited before the first key and after the last, each as a
    /// step of undo. By index: 0 zero, 1 constant and, for the last, 2 loop, 3 loop with offset,
    /// 4 follow tangent; any other does nothing.
    void setFirstNodeZero();
    void setFirstNodeConstant();
    void setLastNodeZero();
    void setLastNodeConstant();
    void setLastNodeLoop();
    void setLastNodeLoopOffset();
    void setLastNodeFollowTangent();
    void changeNodeFirstType(int index);
    void changeNodeLastType(int index);
    /// The entries of the tree's menu.
    void slotMenuEditingNodeColor();
    void slotMenuEditingNodeRemove();
    void slotRemoveFromEditing(QModelIndexList indexes);
    /// The selected curves leave the canvas, as a step of undo.
    void removeCurvesFromEditing();
    /// A curve, or all curves of a group or main node, leaves the canvas; no step of undo.
    void removeCurveFromEditing(QString dotName);
    /// The entries of the menu "Insert": each builds a new text from the line's and executes it.
    /// The line then has the focus, and the first "X", which stands for what the user has still to
    /// give, is selected. Null does nothing.
    void insertUnaryFunc(QAction* action);
    void insertBinaryFunc(QAction* action);
    void insertTernaryFunc(QAction* action);
    void insertIVarFunc(QAction* action);
    void insertDVarFunc(QAction* action);
    /// For hosts: inserts an underscore at the expression line's cursor and gives it the focus.
    void errorClosed();
    /// The present selection followed by these names.
    void addNodesToSelection(QString name);
    void addNodesToSelection(QStringList names);
    /// The selection becomes these dotted names; a group stands for its curves, an unknown name is
    /// kept but selects nothing.
    void selectNodes(QString name);
    /// Shows the dialog of the selected keys' values, or closes it.
    void showKeyProperties();
    void selectNodes(QStringList names);
    /// Snap to the grid's vertical lines (H) or horizontal ones (V); switchSnap makes both the
    /// same.
    void switchSnapH();
    void switchSnapV();
    void switchSnap();
    /// Show or hide the values of the selected keys.
    void switchToolTips();
    /// Adds the splines of the curves being edited to their expressions, or takes them out, as a
    /// step of undo.
    void switchAddFuncToSpline();
    /// Makes an action the one that a toolbar's button shows and repeats; its drop-down stays.
    /// Does nothing for null or for a number without a button.
    void setDefaultButton(QAction* action, const topToolButtons& button);
    /// Interpolation of the selected keys, as a step of undo.
    void setSelectedLinear();
    void setSelectedStep();
    void setSelectedBezier();
    void setSelectedTcb();
    /// The selected names in the order in which they were given.
    QStringList getSelection();
    /// The style of the tree; not owned.
    void setCheckListStyle(QStyle* style);
    /// Undo and redo of this editor; never null, owned by the editor.
    curve_editor::CurveCommandsManager* getCmdManager();
    /// On the keys of the curves being edited, each as a step of undo.
    void selectAllKeys();
    void selectNoneKeys();
    void deleteSelectedKeys();
    /// Sets the canvas's cursor and refreshes the editor; does nothing in the mode already set.
    void setCurrentMode(curveEditorModes newMode);
    CurveEditor::curveEditorModes getCurrentMode();
    /// Checks the tool's button and nothing else.
    void setUserMode(curveEditorModes newMode);
    CurveEditor::curveEditorModes getUserMode();
    /// Writes the mode's name to the standard output, without a line's end.
    void printMode(curveEditorModes theMode);
    /// Take up a tool, or put it away if it is the one in use.
    void setSelectMode();
    void setMoveMode();
    void setAddKeyMode();
    void setDeleteKeyMode();
    void setZoomMode();
    /// No tool: both modes become DEFAULT.
    void setDefaultMode();
    /// Runs the menu of toolbars at the cursor, until it closes.
    void showTopToolbarMenu();
    /// Modifiers of gestures: "alt", "shift", "ctrl" or "meta" in any case; any other name is never
    /// pressed. Whether one is pressed is told by a key event of that very key, else by the event's
    /// modifiers; a null event gives false.
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
    /// Check or uncheck the button of the key dialog; the dialog stays as it is.
    void enableShowKeyPptiesBtn();
    void disableShowKeyPptiesBtn();

private:
    void preInit();
    void setMinTime(const double& time);
    void setMaxTime(const double& time);
    /// The dotted name of each record, one a line; for debugging.
    std::string dumpNodeList() const;
    void lendAnew(NodeStruct* record, const NodeStruct& content);
    /// Lets tool and mode show in buttons and cursor, and end gestures that they do not go with.
    void connectModes();

    friend class curve_editor::CurveEditorPrivate;
    std::unique_ptr<curve_editor::CurveEditorPrivate> d;
    QStringList selectedDotNames;   ///< the selection, in the order given
    bool selectionBusy = false;     ///< re-entry guard of the selection
    bool hasSettingsAction = false; ///< the settings action is not built
};
