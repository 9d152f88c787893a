// What canvas, tree and line tell the dialog.

#include "editor/CurveEditor.h"

#include "canvas/FunctionEditor.h"
#include "widgets/ControlMenu2.h"

#include <QItemSelectionModel>

/// By signature, as hosts and tables name signals and slots. The actions are connected where they
/// are made.
void CurveEditor::connectWidgets()
{
    connect(commandLine, SIGNAL(editingFinished()), this, SLOT(executeCommand()));
    connect(deleteCurve, SIGNAL(pressed()), this, SLOT(deleteCurveClicked()));
    connect(addToSpline, SIGNAL(clicked()), this, SLOT(switchAddFuncToSpline()));
    CanvasFunctionBase* const logic = &functionEditor->canvas();
    connect(logic, SIGNAL(changeCommandLine()), this, SLOT(refreshEditor()));
    connect(logic, SIGNAL(selectionChanged(QStringList)), this,
            SLOT(canvasSelectionChanged(QStringList)));
    connect(checkListsEditing->selectionModel(),
            SIGNAL(selectionChanged(const QItemSelection&, const QItemSelection&)), this,
            SLOT(selectionChangedEditingItem(const QItemSelection&, const QItemSelection&)));
    connect(checkListsEditing, SIGNAL(rightButtonPressed(const QModelIndex&)), this,
            SLOT(rightButtonPressedEditingItem(const QModelIndex&)));
    connect(checkListsEditing, SIGNAL(removeFromEditing(const QModelIndexList&)), this,
            SLOT(slotRemoveFromEditing(const QModelIndexList&)));
    connect(functionEditor,
            SIGNAL(setFuncPosInfo(const ZK_DOUBLE&, const ZK_DOUBLE&, const ZK_DOUBLE&)), this,
            SLOT(setFuncPosInfo(const ZK_DOUBLE&, const ZK_DOUBLE&, const ZK_DOUBLE&)));
    connect(treeMenu, SIGNAL(setRemoveItem()), this, SLOT(slotMenuEditingNodeRemove()));
    connect(treeMenu, SIGNAL(setColorChange()), this, SLOT(slotMenuEditingNodeColor()));
    connect(logic, SIGNAL(showKeyProperties()), this, SLOT(showKeyProperties()));
}
