// Construction, the parts that others reach, and the events of the window.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "editor/CurveEditorPrivate.h"
#include "widgets/ControlMenu2.h"
#include "widgets/CurveKeysDialog.h"
#include "widgets/CustomEditLine.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QToolButton>

namespace {

/// The dialog under which the host deletes an editor may have been opened from one of its menus,
/// and the toolkit goes on with that menu once the dialog has returned.
void keepMenusUntilTheirReturn(const CurveEditor& editor)
{
    if (!QApplication::activeModalWidget()) {
        return;
    }
    for (QMenu* const menu : editor.findChildren<QMenu*>()) {
        if (!qobject_cast<QMenu*>(menu->parent())) { // which a sub-menu stays with
            menu->setParent(nullptr);
            menu->deleteLater();
        }
    }
}

} // namespace

ControlMenu* CurveEditor::canvasMenu = nullptr;

CurveEditor::CurveEditor(QWidget* parent, const QString& iconsFolder)
    : QDialog(parent, Qt::WindowFlags())
    , d(std::make_unique<curve_editor::CurveEditorPrivate>(this, iconsFolder))
{
    setupUi(this);
    preInit();

    checkListsEditing->setHeaderLabel(tr("Curves"));
    checkListsEditing->clear();
    checkListsEditing->setAutoScroll(true);

    d->initCanvas();
    positionX()->setFocusPolicy(Qt::StrongFocus);
    positionY()->setFocusPolicy(Qt::StrongFocus);
    d->functionEditor->setFocusPolicy(Qt::ClickFocus);
    resize(500, 300);
    d->connectWidgets();
    connectModes();

    setFocusPolicy(Qt::StrongFocus);
    setShowFrames();
    d->canvas().clearCurves();
    selectNodes(QStringList());
    QWidget::update();
}

/// The canvas goes while the rest of the editor lives: what its curves and pending commands reach
/// is still there. Before it go the commands, which may name its curves.
CurveEditor::~CurveEditor()
{
    d->manager.setGestureEnd({});
    disconnect(commandLine, nullptr, this, nullptr);
    disconnect(&d->canvas(), nullptr, this, nullptr);
    disconnect(d->functionEditor, nullptr, this, nullptr);
    disconnect(checkListsEditing, nullptr, this, nullptr);
    disconnect(checkListsEditing->selectionModel(), nullptr, this, nullptr);
    d->manager.clear();
    delete d->functionEditor;
    d->functionEditor = nullptr;
    keepMenusUntilTheirReturn(*this);
}

FunctionEditor* CurveEditor::getFunctionEditor() const
{
    return d->functionEditor;
}

curve_editor::CurveCommandsManager* CurveEditor::getCmdManager()
{
    return &d->manager;
}

/// QDialog's own handling of events is left out.
bool CurveEditor::event(QEvent* event)
{
    return QWidget::event(event);
}

void CurveEditor::keyPressEvent(QKeyEvent* event)
{
    d->functionEditor->keyPressEvent(event);
    QDialog::keyPressEvent(event);
}

void CurveEditor::keyReleaseEvent(QKeyEvent* event)
{
    d->functionEditor->keyReleaseEvent(event);
    QWidget::keyReleaseEvent(event);
}

/// QDialog's own would ask reject(), which does nothing, and leave the window open.
void CurveEditor::closeEvent(QCloseEvent* event)
{
    if (d->keysDialog()->isVisible()) {
        d->keysDialog()->close();
    }
    event->accept();
}

void CurveEditor::reject() {}

/// The host decides what becomes of it.
void CurveEditor::undo()
{
    d->manager.endGestures(); // a host may ask what there is to undo
    emit curveEditorUndo();
}

void CurveEditor::redo()
{
    d->manager.endGestures(); // a host may ask what there is to redo
    emit curveEditorRedo();
}

void CurveEditor::clearStack()
{
    d->manager.clear();
}

void CurveEditor::setUndoLevels(ZK_UINT levels)
{
    d->manager.setMaxStackSize(levels);
}

void CurveEditor::setEnableUndo(ZK_BOOL enable)
{
    d->manager.setEnable(enable);
}

void CurveEditor::selectAllKeys()
{
    d->canvas().selectAllKeys();
    refreshEditor();
}

void CurveEditor::selectNoneKeys()
{
    d->canvas().deselectAllKeys();
    d->functionEditor->refreshKeysDialog();
}

void CurveEditor::deleteSelectedKeys()
{
    d->canvas().deleteSelectedNodes();
    refreshEditor();
    d->functionEditor->refreshKeysDialog();
}

void CurveEditor::flatTangents()
{
    d->canvas().flatTangents(); // which refreshes by itself as well
    d->canvas().updateCanvas();
    d->functionEditor->refreshKeysDialog();
}

void CurveEditor::breakTangents()
{
    d->canvas().setTangentsBroken(true);
    d->canvas().updateCanvas();
    d->functionEditor->refreshKeysDialog();
}

void CurveEditor::unifyTangents()
{
    d->canvas().setTangentsBroken(false);
    d->canvas().updateCanvas();
    d->functionEditor->refreshKeysDialog();
}
