#pragma once

#include "canvas/CanvasClipboard.h"
#include "canvas/CanvasMode.h"
#include "canvas/CanvasOptions.h"
#include "core/SplineBase.h"
#include "curves/CurveTree.h"
#include "curves/EditingSet.h"

#include <QColor>
#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>
#include <iosfwd>
#include <memory>

struct CanvasBackground;
class CanvasGestures;
class CanvasLayers;
class CanvasPainter;
class CanvasPress;
class CurveEditor;
class CurveHost;
class CurveNode;
class CurveNodeBase;
class FrameGrid;
class FunctionEditor;
class FunctionFloatBase;
class ParserScope;
class ParseMessage;
class QInputEvent;
class QKeyEvent;
class QMouseEvent;
class QPainter;
class QPoint;
class QPointF;
class SplineCurveGraph;
class ViewPort;
struct SelectionState;

namespace curve_editor {
class CanvasHost;
class CurveCommand;
struct NodeStruct;
} // namespace curve_editor

/// The logic of the canvas: the tree of curve objects, the set of curves being edited, painting,
/// and every gesture on keys and handles.
class CanvasFunctionBase : public QObject, public CanvasOptions
{
    Q_OBJECT

public:
    /// `widget` is the parent and gives the view; `editor` is the dialog. Neither is owned.
    CanvasFunctionBase(FunctionEditor* widget, CurveEditor* editor);
    ~CanvasFunctionBase() override;

    bool event(QEvent* event) override;

    /// Whether an event tells which modifier keys are held: watchModifiers wants to see it.
    static bool carriesModifiers(const QEvent* event);

    /// @name Registry: which curves are on the canvas, and which are being edited
    /// @{
    CurveTree& tree();
    const EditingSet& editingSet() const;
    /// The first node of that name, a group or a leaf; null if there is none.
    CurveNode* findCurve(const QString& dotName) const;
    /// The same where a curve answers; null where a group does.
    CurveNode* findLeaf(const QString& dotName) const;
    /// The group that a curve of this name goes into, made where it is missing. Null where the
    /// curve is to stand on top: its name has one element, or two of equal text at its start and
    /// end, or a curve stands in the way of a group.
    CurveNode* ensurePath(const QString& dotName);
    /// Makes a curve, or gives back the node of that name, which may be a group. Owned by the
    /// canvas; spline and slot, which may be null, stay the caller's.
    CurveNode* addCanvasCurve(const QString& dotName, const QColor& color, const float& curveValue,
                              SplineBase* spline, FunctionFloatBase** expressionSlot,
                              const float& minValue, const float& maxValue, const bool& notifyHost);
    /// The same of what a record lends.
    CurveNode* addCanvasCurve(const curve_editor::NodeStruct& record);
    /// Puts an unlinked curve back into the tree, and owns it from then on, unless a node of its
    /// name is there, which is given back then. Null, too, for a curve that has been freed.
    CurveNode* attachCanvasCurve(CurveNode* curve);
    /// Unlinks the node of that name, and frees it as soon as nobody names it: see CurveHold and
    /// CurveVisit.
    void removeCanvasCurve(const QString& dotName);
    /// The same with all nodes that are linked.
    void clearCurves();
    /// Exactly these curves are being edited, and drawn, from now on. A group stands for its
    /// leaves; unknown names and null are passed over. A curve that is deselected loses its
    /// selection of keys; one that is removed keeps it for an undo. selectionChanged is emitted at
    /// once and once more by the next updateCanvas.
    void selectCurves(const QStringList& dotNames);
    void selectCurveObjects(const QList<CurveNode*>& curves);
    QList<CurveNode*> editingCurves() const;
    /// At least one curve is being edited.
    bool isEditing() const;
    QStringList editingCurveNames() const;
    QList<SplineCurveGraph*> keyContainers() const;
    /// The spline of the first curve being edited, null if there is none.
    SplineBase* firstSpline() const;
    /// Its dotted name, or "None".
    QString firstCurveName() const;
    /// See files/CurveType.h: the type of the first curve, mixed when it or another one that
    /// differs is a plain spline; expression when no curve is being edited.
    int editingType() const;
    /// What the expression line shows: "..." where the expressions differ.
    QString commandLineText() const;
    void markExpressionsChanged();
    /// Sends the notice of the editing set that is still due, and schedules a repaint.
    void updateCanvas();
    /// Whether that notice is due.
    bool isNoticeDue() const;
    /// Writes each curve being edited to a file of its dotted name.
    void saveCurvesXml(const QString& folder);
    /// Writes the first curve being edited as an older curve file; nothing without one.
    void saveCrvFile(std::ofstream& stream);
    void saveCrvFile(std::ostream& stream);
    /// Empties the curves being edited, or all curves on the canvas: one step, none where there is
    /// no curve. The set of curves being edited ends as it began.
    void resetEditingCurves();
    void resetAllCurves();
    /// The top nodes of the tree, owned by the canvas.
    QList<CurveNode*> topNodes() const;
    /// Frees a node that stands unlinked as soon as nobody names it; does nothing on any other.
    void discardUnlinked(CurveNode* node);
    /// @}

    /// @name Painting
    /// @{
    /// With `onlyMoved` the time line or the rubber band has moved since the last time, and nobody
    /// has asked for more.
    void paint(QPainter* painter, const bool& onlyMoved = false);
    /// What is kept of the last picture, until the canvas's last moments.
    CanvasLayers& layers();
    void dropLayers();
    FrameGrid* frameGrid() const;
    /// Null removes the picture.
    void setBackground(std::unique_ptr<CanvasBackground> picture);
    CanvasBackground* backgroundPicture() const;
    bool curvesBounds(double& x1, double& x2, double& y1, double& y2) const;
    bool selectionBounds(double& x1, double& x2, double& y1, double& y2) const;
    /// @}

    /// @name Events; press returns whether it was consumed
    /// @{
    bool press(QMouseEvent* event);
    void release(QMouseEvent* event);
    void move(QMouseEvent* event);
    void doubleClick(QMouseEvent* event);
    void keyPress(QKeyEvent* event);
    void watchModifiers(QInputEvent* event);
    /// @}

    /// @name Gestures: a drag of keys, a rubber band, or a drag of the view
    /// @{
    /// Left, middle and right button alone begin a gesture, and none while another is held for one.
    bool ignoresPress(const Qt::MouseButton& button) const;
    /// The same of releases; that of the middle button ends each gesture.
    bool ignoresRelease(const Qt::MouseButton& button) const;
    /// The button that is held for the gesture is none of these: its release was lost.
    bool hasLostButton(const Qt::MouseButtons& held) const;
    /// Ends what is running as its release would: its steps are in the history, its rectangle is
    /// gone and the mode is the chosen one. Called where a release may be lost.
    void endGesture();
    /// The same for drags over a field, too, but not for drags of the view. Called before anything
    /// else is done to keys, selection, history or the curves being edited.
    void endGestures();
    /// The same for this canvas alone, unless the command is the gesture's own; null is nobody's.
    void endGestureBefore(const curve_editor::CurveCommand* command);
    /// The same if such a curve, or one of such a group, is being edited.
    void endGestureOn(const QString& dotName);
    /// The same unless these names stand for exactly the curves being edited.
    void endGestureUnlessEditing(const QStringList& dotNames);
    /// The same unless the gesture goes on in that mode.
    void endGestureUnlessIn(curve_editor::CanvasMode mode);
    /// Ends a gesture of the mouse whose release was lost, as this event tells.
    void endLostGesture(QInputEvent* event);
    /// @}

    /// @name Gesture commands: see PendingCommands
    /// @{
    void beginSelectCommand();
    void commitSelectCommand();
    /// Notes where the move begins, for the axis lock, and begins its command.
    void beginMove(const QPoint& pixel);
    void beginMoveCommand();
    void commitMoveCommand();
    void beginChangeCommand();
    void commitChangeCommand();
    void dropPendingCommands();
    /// @}

    /// @name Keys
    /// @{
    /// A key at a time in seconds and a value. Nothing for null, nor for a curve whose record
    /// the list search does not find.
    void addKey(CurveNode* curve, const double& x, const double& y);
    /// Deletes the selected keys; with none selected the command is refused.
    void deleteKeys();
    /// A key at the cursor, asked for by a curve.
    void createNodeAtCursor(CurveNode* curve);
    /// What lies under a pixel. `hits` gets one key or null a curve being edited; the span is
    /// the time from the first selected key to the last, 0 to 0 without one. Returns whether the
    /// press lies outside: on no key, and its time not within the span.
    bool hitKeys(const QPoint& pixel, bool& manySelected, bool& anySelected, bool& hitUnselected,
                 bool& hitSelected, double& spanMin, double& spanMax, QList<PointInfo*>& hits);
    /// Each curve's hit alone becomes its selection, none without a hit.
    void selectHits(const QList<PointInfo*>& hits);
    /// Takes each hit into its curve's selection, or out of it.
    void toggleHits(const QList<PointInfo*>& hits);
    void clearSelection();
    /// The keys strictly inside the view's rubber band; `add` keeps those selected before.
    void selectInRect(const bool& add);
    /// Each is one step, none if nothing changes. Scaling is about time 0 and value 0; a pan is
    /// in seconds and units of value.
    void scaleSelection(const double& sx, const double& sy);
    void panSelection(const double& dx, const double& dy);
    void flatTangents();
    void setTangentsBroken(const bool& broken);
    /// @}

    /// @name Clipboard: one curve's keys, private to this canvas
    /// @{
    /// Copies all keys, or the selected ones, of the only curve being edited. With no such curve or
    /// no such key the former clipboard stays.
    void copy();
    void copyKeys();
    /// Paste onto all curves being edited, as one step: in place of their keys, or (Keys) beside
    /// them, selected. The times are those of the clipboard, or these moved by the time line's
    /// (Offset), or moved so that the first key falls on the time line (OnTimeline).
    void paste();
    void pasteOffset();
    void pasteOnTimeline();
    void pasteKeys();
    void pasteKeysOffset();
    void pasteKeysOnTimeline();
    /// @}

    /// Parses in the local 8-bit encoding; an error shows a box titled "Syntax error". Returns
    /// what the parser returned, owned by the caller.
    FunctionFloatBase* parseExpression(const QString& text, ParseMessage& message);

    SelectionState selectionState() const;
    CurveEditor* curveEditor() const;
    /// Whose names expressions read first; not owned. Null without an editor.
    const ParserScope* parserScope() const;
    ViewPort* viewPort() const;

public slots:
    void currentNodeHasChanged();
    void hideMark();
    void deleteSelectedNodes();
    void setSelectedLinear();
    void setSelectedBezier();
    void setSelectedTcb();
    void setSelectedStep();
    void selectAllKeys();
    void deselectAllKeys();
    void switchAddFuncToSpline();
    void showRightButtonMenu();

signals:
    void changeCommandLine();
    void selectionChanged(QStringList curveNames);
    void showKeyProperties();

private:
    friend class CanvasPress;

    QList<SplineCurveGraph*> editableGraphs() const;
    QPointF worldAt(const QPointF& place) const;
    QPointF worldUnder(const QMouseEvent& event) const;

    void changeSelection(const std::function<void()>& change);
    void walkSelection(const bool& forward);

    void setPointsType(const zk_spline::interpolationType& type);

    CurveNodeBase* copySource() const;
    void pasteClipboard(const double& offset, const bool& keysOnly);

    FunctionEditor* widget; ///< not owned: the parent
    CurveEditor* editor;    ///< not owned: outlives the canvas but for its own last moments
    ViewPort* view;         ///< not owned: the widget's base
    EditingSet editing;
    std::unique_ptr<curve_editor::CanvasHost> host; ///< null without an editor
    std::unique_ptr<CanvasGestures> gestures;       ///< never null
    std::unique_ptr<CanvasPainter> ground;          ///< never null
    CanvasClipboard clipboard;
    std::unique_ptr<CurveHost> curveHost; ///< never null
    CurveTree curveTree; ///< the last field: whoever hears of a curve's end may use the others
};
