#include "editor/CurveEditorPrivate.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "editor/CurveEditor.h"
#include "widgets/ControlMenu2.h"
#include "widgets/CurveKeysDialog.h"

#include <QHBoxLayout>
#include <QItemSelectionModel>

namespace curve_editor {

CurveEditorPrivate::CurveEditorPrivate(CurveEditor* owner, const QString& iconsFolder)
    : commandContext(*owner, catalogue)
    , manager(CurveCommandsManager::instance())
    , icons{iconsFolder}
    , actions(owner, &icons)
    , editor(owner)
{
    manager.setMaxStackSize(10);
}

CurveEditorPrivate::~CurveEditorPrivate() = default;

CurveEditorPrivate& CurveEditorPrivate::of(const CurveEditor& editor)
{
    return *editor.d;
}

void CurveEditorPrivate::initCanvas()
{
    QFrame* const place = editor->functionView;
    functionEditor = new FunctionEditor(place, editor);
    manager.setGestureEnd([this](const CurveCommand* next) {
        canvas().endGestureBefore(next);
        keysDialog()->endGesture();
    });
    auto* const layout = new QHBoxLayout(place);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(functionEditor);
    QPalette palette = place->palette();
    palette.setColor(QPalette::Window, Qt::black);
    place->setPalette(palette);
}

/// By signature, as hosts and tables name signals and slots.
void CurveEditorPrivate::connectWidgets()
{
    const CanvasFunctionBase* const logic = &canvas();
    const EditingTree* const tree = editor->checkListsEditing;
    QObject::connect(editor->commandLine, SIGNAL(editingFinished()), editor,
                     SLOT(executeCommand()));
    QObject::connect(editor->deleteCurve, SIGNAL(pressed()), editor, SLOT(deleteCurveClicked()));
    QObject::connect(editor->addToSpline, SIGNAL(clicked()), editor, SLOT(switchAddFuncToSpline()));
    QObject::connect(logic, SIGNAL(changeCommandLine()), editor, SLOT(refreshEditor()));
    QObject::connect(logic, SIGNAL(selectionChanged(QStringList)), editor,
                     SLOT(canvasSelectionChanged(QStringList)));
    QObject::connect(
        tree->selectionModel(),
        SIGNAL(selectionChanged(const QItemSelection&, const QItemSelection&)), editor,
        SLOT(selectionChangedEditingItem(const QItemSelection&, const QItemSelection&)));
    QObject::connect(tree, SIGNAL(rightButtonPressed(const QModelIndex&)), editor,
                     SLOT(rightButtonPressedEditingItem(const QModelIndex&)));
    QObject::connect(tree, SIGNAL(removeFromEditing(const QModelIndexList&)), editor,
                     SLOT(slotRemoveFromEditing(const QModelIndexList&)));
    QObject::connect(functionEditor,
                     SIGNAL(setFuncPosInfo(const ZK_DOUBLE&, const ZK_DOUBLE&, const ZK_DOUBLE&)),
                     editor,
                     SLOT(setFuncPosInfo(const ZK_DOUBLE&, const ZK_DOUBLE&, const ZK_DOUBLE&)));
    QObject::connect(treeMenu, SIGNAL(setRemoveItem()), editor, SLOT(slotMenuEditingNodeRemove()));
    QObject::connect(treeMenu, SIGNAL(setColorChange()), editor, SLOT(slotMenuEditingNodeColor()));
    QObject::connect(logic, SIGNAL(showKeyProperties()), editor, SLOT(showKeyProperties()));
}

CanvasFunctionBase& CurveEditorPrivate::canvas() const
{
    return functionEditor->canvas();
}

CurveKeysDialog* CurveEditorPrivate::keysDialog() const
{
    return functionEditor->keysDialog();
}

void CurveEditorPrivate::repaintCanvas()
{
    functionEditor->canvasDirty = true;
    canvas().updateCanvas();
}

void CurveEditorPrivate::repaintAll()
{
    repaintCanvas();
    editor->update();
}

} // namespace curve_editor
