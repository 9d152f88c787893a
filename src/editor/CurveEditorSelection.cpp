// The selection of curves: one list of dotted names, mirrored in the tree and on the canvas.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "editor/CurveEditorPrivate.h"

#include <QSet>

#include <algorithm>
#include <utility>

void CurveEditor::selectNodes(QString name)
{
    selectNodes(QStringList(name));
}

void CurveEditor::selectNodes(QStringList names)
{
    if (selectionBusy) {
        update();
        return;
    }
    d->canvas().endGestureUnlessEditing(names);
    selectionBusy = true;
    const QSet<QString> former(selectedDotNames.cbegin(), selectedDotNames.cend());
    const bool same = names.size() == selectedDotNames.size() &&
                      std::all_of(names.cbegin(), names.cend(),
                                  [&](const QString& name) { return former.contains(name); });
    selectedDotNames = names;
    checkListsEditing->selectTreeItems(names);
    d->canvas().selectCurves(names);
    refreshEditor();
    if (!same) {
        refreshCommandLine();
    }
    selectionBusy = false;
    update();
}

void CurveEditor::addNodesToSelection(QString name)
{
    addNodesToSelection(QStringList(name));
}

void CurveEditor::addNodesToSelection(QStringList names)
{
    selectNodes(selectedDotNames + names);
}

QStringList CurveEditor::getSelection()
{
    return selectedDotNames;
}

void CurveEditor::selectionChangedEditingItem(QItemSelection selected, QItemSelection deselected)
{
    if (selectionBusy) { // an echo, or an item of many that are on their way out
        update();
        return;
    }
    const QStringList on = checkListsEditing->treeDotNames(selected.indexes());
    const QStringList off = checkListsEditing->treeDotNames(deselected.indexes());
    const QSet<QString> gone(off.cbegin(), off.cend());
    QStringList names;
    for (const QString& name : std::as_const(selectedDotNames)) {
        if (!gone.contains(name)) {
            names.append(name);
        }
    }
    selectNodes(names + on);
}

void CurveEditor::canvasSelectionChanged(QStringList curveNames)
{
    selectNodes(curveNames);
    d->functionEditor->refreshKeysDialog();
}
