#pragma once

#include "support/EditorFixture.h"

#include "commands/CommandAddPoint.h"
#include "widgets/CurveKeysDialog.h"
#include "widgets/CustomEditLine.h"

#include <QDialog>

#include <functional>
#include <vector>

/// Who else changes "n.a" by an intrusion.
enum intrusionKinds : int
{
    byCommands, ///< commands alone, or nobody
    undoing,    ///< undo and other commands
    byTheHost,  ///< the host, past the history
    forgetting  ///< nobody, and the history keeps nothing
};

/// What user and host do in the middle of a drag of "n.a".
struct Intrusion
{
    const char* name;
    intrusionKinds kind;
    std::function<void(EditorFixture&)> intrude;
};

inline SplineBase* draggedSpline(EditorFixture& fixture)
{
    const auto found = fixture.curves.find("n.a");
    return found == fixture.curves.end() ? nullptr : &found->second->spline;
}

inline void freeAKey(EditorFixture& fixture)
{
    SplineBase* const spline = draggedSpline(fixture);
    if (spline && spline->getControlPointsNumber() > 1) {
        const std::unique_ptr<PointInfo> taken(spline->at(1));
        spline->remove(taken.get());
    }
}

inline void freeAllKeys(EditorFixture& fixture)
{
    if (SplineBase* const spline = draggedSpline(fixture)) {
        spline->removeAllControlPoints();
    }
}

inline void addAKey(EditorFixture& fixture)
{
    fixture.logic().addKey(fixture.logic().findCurve("n.a"), 21.0, 21.0);
}

/// As a host does that has its own way to the manager.
inline void runACommand(EditorFixture& fixture)
{
    CurveEditor& editor = fixture.editor;
    editor.getCmdManager()->doCommand(
        new curve_editor::CommandAddPoint(&editor, editor.searchAllNodeList("n.a"), 27.0, 3.0));
}

inline void undoAndAdd(EditorFixture& fixture)
{
    fixture.editor.getCmdManager()->undo();
    addAKey(fixture);
}

inline void askInABox(EditorFixture& fixture)
{
    QDialog box(&fixture.editor);
    QTimer::singleShot(0, &box, &QDialog::accept);
    box.exec();
}

inline void openAPopup(EditorFixture& fixture)
{
    fixture.canvas().setFocus();
    QMenu menu;
    menu.addAction("entry");
    QTimer::singleShot(0, &menu, &QWidget::close);
    menu.exec();
}

inline void activateAnotherWindow(EditorFixture& fixture)
{
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    QApplication::setActiveWindow(&fixture.editor);
}

inline void hideForAWhile(EditorFixture& fixture)
{
    fixture.editor.hide();
    fixture.editor.show();
    QApplication::setActiveWindow(&fixture.editor);
}

/// A press and a release of another button while the left one is held.
inline void useButton(EditorFixture& fixture, const Qt::MouseButton& button)
{
    // Where the gesture is over already, the menu opens.
    fixture.closesMenuOf([&] {
        fixture.send(QEvent::MouseButtonPress, QPoint(60, 60), button, Qt::LeftButton | button);
    });
    fixture.send(QEvent::MouseButtonRelease, QPoint(60, 60), button, Qt::LeftButton);
}

inline const std::vector<Intrusion>& intrusions()
{
    using F = EditorFixture;
    static const std::vector<Intrusion> rows{
        {"the host frees a key", byTheHost, freeAKey},
        {"the host frees all keys", byTheHost, freeAllKeys},
        {"the host destroys the spline", byTheHost, [](F& f) { f.curves.erase("n.a"); }},
        {"the curve is removed", byCommands, [](F& f) { f.editor.removeCurve("n", "a"); }},
        {"the curve leaves the canvas", byCommands,
         [](F& f) { f.editor.removeCurveFromEditing("n.a"); }},
        {"the curve leaves the canvas by a step", byCommands,
         [](F& f) { f.editor.removeCurvesFromEditing(); }},
        {"the curve is renamed", byCommands, [](F& f) { f.editor.renameCurve("n", "a", "c"); }},
        {"no curve is chosen", byCommands, [](F& f) { f.editor.selectNodes(QStringList()); }},
        {"another curve is chosen", byCommands,
         [](F& f) { f.editor.selectNodes(QStringList("n.b")); }},
        {"both curves are chosen", byCommands,
         [](F& f) {
             f.editor.selectNodes({"n.a", "n.b"});
         }},
        {"the same curve is chosen", byCommands,
         [](F& f) { f.editor.selectNodes(QStringList("n.a")); }},
        {"undo", undoing, [](F& f) { f.editor.getCmdManager()->undo(); }},
        {"redo", byCommands, [](F& f) { f.editor.getCmdManager()->redo(); }},
        {"undo and a new key", undoing, undoAndAdd},
        {"a new key", byCommands, addAKey},
        {"a command of the host", byCommands, runACommand},
        {"all keys are selected", byCommands, [](F& f) { f.editor.selectAllKeys(); }},
        {"no key is selected", byCommands, [](F& f) { f.editor.selectNoneKeys(); }},
        {"the selection is deleted", byCommands, [](F& f) { f.editor.deleteSelectedKeys(); }},
        {"the curve is reset", byCommands, [](F& f) { f.editor.resetSelectedF(); }},
        {"the history is cleared", byCommands, [](F& f) { f.editor.clearStack(); }},
        {"no history is kept", forgetting, [](F& f) { f.editor.setUndoLevels(0); }},
        {"undo is switched off", forgetting, [](F& f) { f.editor.setEnableUndo(false); }},
        {"the keys are flattened", byCommands, [](F& f) { f.editor.flatTangents(); }},
        {"the tangents are broken", byCommands, [](F& f) { f.editor.breakTangents(); }},
        {"the tangents are unified", byCommands, [](F& f) { f.editor.unifyTangents(); }},
        {"the keys are scaled", byCommands, [](F& f) { f.logic().scaleSelection(1.5, 0.5); }},
        {"the keys are moved", byCommands, [](F& f) { f.logic().panSelection(0.3, -0.1); }},
        {"the keys get a type", byCommands, [](F& f) { f.editor.setSelectedTcb(); }},
        {"the curve gets a behaviour", byCommands, [](F& f) { f.editor.setLastNodeLoop(); }},
        {"a value is typed", byCommands,
         [](F& f) {
             CurveKeysDialog& dialog = *f.canvas().keysDialog();
             dialog.valueChangedTyped(7.5, dialog.posY);
         }},
        {"a field is dragged", byCommands,
         [](F& f) {
             CurveKeysDialog& dialog = *f.canvas().keysDialog();
             dialog.startMovePoints();
             dialog.valueChanged(6.5, dialog.posY);
         }},
        {"the dialog's next key", byCommands, [](F& f) { f.canvas().keysDialog()->clickedNext(); }},
        {"another tool", byCommands, [](F& f) { f.editor.setDeleteKeyMode(); }},
        {"no tool", byCommands, [](F& f) { f.editor.setDefaultMode(); }},
        {"another mode", byCommands, [](F& f) { f.editor.setCurrentMode(CurveEditor::SELECT); }},
        {"the view is reset", byCommands, [](F& f) { f.editor.resetViewport(); }},
        {"the view is fitted", byCommands, [](F& f) { f.editor.completeViewport(); }},
        {"the wheel", byCommands, [](F& f) { f.wheel(QPoint(200, 200), 120); }},
        {"the editor is closed", byCommands, [](F& f) { f.editor.close(); }},
        {"the editor is hidden", byCommands, hideForAWhile},
        {"another window", byCommands, activateAnotherWindow},
        {"a box", byCommands, askInABox},
        {"a popup", byCommands, openAPopup},
        {"delete key", byCommands, [](F& f) { f.typeKey(Qt::Key_Delete); }},
        {"ctrl z", undoing, [](F& f) { f.typeKey(Qt::Key_Z, Qt::ControlModifier); }},
        {"ctrl y", byCommands, [](F& f) { f.typeKey(Qt::Key_Y, Qt::ControlModifier); }},
        {"an arrow", byCommands, [](F& f) { f.typeKey(Qt::Key_Right); }},
        {"the right button", byCommands, [](F& f) { useButton(f, Qt::RightButton); }},
        {"the middle button", byCommands, [](F& f) { useButton(f, Qt::MiddleButton); }},
        {"the back button", byCommands, [](F& f) { useButton(f, Qt::BackButton); }},
        {"a second left press", byCommands, [](F& f) { f.press(f.pixel(30, 10)); }},
        {"a double click", byCommands,
         [](F& f) {
             f.send(QEvent::MouseButtonDblClick, f.pixel(45, 35), Qt::LeftButton, Qt::LeftButton);
         }},
        {"a release", byCommands, [](F& f) { f.release(f.pixel(30, 10)); }},
        {"a move without a button", byCommands,
         [](F& f) { f.moveTo(f.pixel(31, 11), Qt::NoButton); }},
    };
    return rows;
}
