#pragma once

#include "core/KeyRef.h"
#include "core/ZkTypes.h"
#include "ui_CurveKeysSetter.h"
#include "widgets/KeyFields.h"

#include <QDialog>
#include <QList>

#include <memory>

class CurveEditor;
class SplineCurveGraph;

namespace curve_editor {
class CommandChangePoints;
class CommandMovePoints;
class KeysDialogHost;
} // namespace curve_editor

/// The floating window of the selected keys' exact values, for one key or for many at once.
///
/// The position fields on the editor's menu bar are twins of `posX` and `posY`. Every edit is a
/// step of undo: a drag over a field is one from its press to its release, anything else one by
/// itself.
class CurveKeysDialog : public QDialog, public Ui::CurveKeysSetter
{
    Q_OBJECT

public:
    /// Shows the keys of an editor, which outlives the dialog and hears of its combo boxes of the
    /// behaviours and of its end. The folder of the editor defines this.
    explicit CurveKeysDialog(CurveEditor* parent);
    /// Shows the keys that `host` has; `parent` may be null.
    CurveKeysDialog(std::unique_ptr<curve_editor::KeysDialogHost> host, QWidget* parent);
    /// Frees what is pending; the keys stay as they are.
    ~CurveKeysDialog() override;

    /// Shows the selected keys of the graphs. With `enable` the fields are opened that such a
    /// selection can use; without, those that are open stay open. Where no key is selected all
    /// are closed in any case.
    void showSelection(const QList<SplineCurveGraph*>& graphs, bool enable);
    /// Opens or closes all fields but those of the curve's ends; closing empties the position.
    void enableKeyFields(const bool& on);
    /// Ends a drag over a field as its release would: what it did becomes a step. Without a drag
    /// nothing happens. To be called before anything else changes keys, their selection, the
    /// curves being edited or the history.
    void endGesture();
    /// Shows the times of the same keys anew after the axis has taken another unit or rate. A text
    /// begun in the former unit is dropped.
    void renewTimes();
    /// The time fields were converted by what they showed: they are shown anew before their user
    /// edits them.
    void distrustTimes();

signals:
    /// The dialog has changed keys or the selection of keys.
    void nodeTcbChanged();

public slots:
    /// Select the next or the previous key of the curve, around its ends, as a step of undo.
    void clickedNext();
    void clickedPrev();
    /// Interpolation of the selected keys by the index in nodeTypeCombo.
    void changeNodeType(int index);
    /// An edit of the selected keys by one of the fields, or of their twins. With frames shown,
    /// the value of a time is in frames.
    void valueChangedTyped(ZK_DOUBLE value, CustomEditLine* line);
    void valueChanged(ZK_DOUBLE value, CustomEditLine* line);
    /// Begin and end of a drag over a field. An end without a begin does nothing.
    void startChangePoints();
    void endChangePoints();
    void startMovePoints();
    void endMovePoints();
    /// Shows a time, given in seconds, in posX and its twin.
    void setPosX(ZK_DOUBLE value);
    void focusInEvent(QFocusEvent* event) override;

protected:
    /// Renews what a field shows before the user lays hands on it, for a host or another editor
    /// may have changed the keys without telling.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Connections: CurveKeysDialog.cpp
    void connectFields();
    void connectLine(CustomEditLine* line, const char* start, const char* end);
    /// The lines of a number: two, twins of each other, for time and value, else one.
    QList<CustomEditLine*> linesOf(curve_editor::keyFields field) const;
    curve_editor::keyFields fieldOf(CustomEditLine* line) const;

    // The keys: CurveKeysDialogKeys.cpp
    /// Those of the shown graphs that are on the canvas still, with keys to edit.
    QList<SplineCurveGraph*> editableGraphs() const;
    /// The current key of a graph, or another selected one where that has left the spline. Null
    /// without a selection.
    static PointInfo* leadingKeyOf(SplineCurveGraph* graph);
    /// The selected keys of those graphs, as far as their splines hold them.
    QList<KeyRef> editableKeys() const;
    /// What there is to show of the graphs shown.
    curve_editor::ShownKeys selectedKeys() const;
    /// The open step is one of keys that are not the selected ones any more.
    bool isGestureOfOtherKeys() const;
    void renewIfStale(bool onlyForOthers);

    // Showing: CurveKeysDialogShowing.cpp
    void enableSeveralKeys(const bool& singleEach);
    void loadKeys(const QList<SplineCurveGraph*>& graphs);
    void beginFieldsAnew(const curve_editor::ShownKeys& now);
    void showKeys(const curve_editor::ShownKeys& now);
    void showPosition(const curve_editor::ShownKeys& now);
    void showNumber(CustomEditLine* line, bool differs, double value);
    void showTwin(const CustomEditLine* line);
    bool isBeingTyped(CustomEditLine* line) const;

    // Changing: CurveKeysDialogChanging.cpp
    void selectNeighbour(int step);
    static void applyToKeys(SplineCurveGraph* graph, curve_editor::keyFields field,
                            const PointInfo& record);

    std::unique_ptr<curve_editor::KeysDialogHost> host;
    /// The curves whose selected keys are shown; not owned. Any may be gone: see editableGraphs.
    QList<SplineCurveGraph*> shownGraphs;
    curve_editor::ShownKeys shown; ///< at last
    bool sameKeysShown = false;    ///< those are the keys shown before
    bool sameUnitShown = false;    ///< and their times have the same unit
    bool isShowing = false;        ///< a value that a field sends now was not sent by the user
    std::unique_ptr<curve_editor::CommandChangePoints> pendingChange; ///< between press and release
    std::unique_ptr<curve_editor::CommandMovePoints> pendingMove;     ///< the same, for positions
    /// The keys that the pending one knows; never read.
    QList<KeyRef> pendingKeys;
};
