// Construction, the parts that others reach, and the events of the window.

#include "editor/CurveEditor.h"

#include "canvas/FunctionEditor.h"
#include "canvas/ModeControl.h"
#include "curves/Catalogue.h"
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
    , catalogue(std::make_unique<curve_editor::Catalogue>())
    , modes(std::make_unique<curve_editor::ModeControl>())
    , iconsPath(iconsFolder)
    , manager(curve_editor::CurveCommandsManager::instance())
{
    manager.setMaxStackSize(10);
    setupUi(this);
    preInit();

    checkListsEditing->setHeaderLabel(tr("Curves"));
    checkListsEditing->clear();
    checkListsEditing->setAutoScroll(true);

    initCanvas();
    posX->setFocusPolicy(Qt::StrongFocus);
    posY->setFocusPolicy(Qt::StrongFocus);
    functionEditor->setFocusPolicy(Qt::ClickFocus);
    resize(500, 300);
    connectWidgets();
    connectModes();

    setFocusPolicy(Qt::StrongFocus);
    setShowFrames();
    functionEditor->canvas().clearCurves();
    selectNodes(QStringList());
    QWidget::update();
}

/// The canvas goes while the rest of the editor lives: what its curves and pending commands reach
/// is still there. Before it go the commands, which may name its curves.
CurveEditor::~CurveEditor()
{
    manager.setGestureEnd({});
    disconnect(commandLine, nullptr, this, nullptr);
    disconnect(&functionEditor->canvas(), nullptr, this, nullptr);
    disconnect(functionEditor, nullptr, this, nullptr);
    disconnect(checkListsEditing, nullptr, this, nullptr);
    disconnect(checkListsEditing->selectionModel(), nullptr, this, nullptr);
    manager.clear();
    delete functionEditor;
    functionEditor = nullptr;
    keepMenusUntilTheirReturn(*this);
}

FunctionEditor* CurveEditor::getFunctionEditor() const
{
    return functionEditor;
}

curve_editor::CurveCommandsManager* CurveEditor::getCmdManager()
{
    return &manager;
}

/// QDialog's own handling of events is left out.
bool CurveEditor::event(QEvent* event)
{
    return QWidget::event(event);
}

void CurveEditor::keyPressEvent(QKeyEvent* event)
{
    functionEditor->keyPressEvent(event);
    QDialog::keyPressEvent(event);
}

void CurveEditor::keyReleaseEvent(QKeyEvent* event)
{
    functionEditor->keyReleaseEvent(event);
    QWidget::keyReleaseEvent(event);
}

/// QDialog's own would ask reject(), which does nothing, and leave the window open.
void CurveEditor::closeEvent(QCloseEvent* event)
{
    if (functionEditor->keysDialog()->isVisible()) {
        functionEditor->keysDialog()->close();
    }
    event->accept();
}

void CurveEditor::reject() {}

/// The host decides what becomes of it.
void CurveEditor::undo()
{
    manager.endGestures(); // a host may ask what there is to undo
    emit curveEditorUndo();
}

void CurveEditor::redo()
{
    manager.endGestures(); // a host may ask what there is to redo
    emit curveEditorRedo();
}

void CurveEditor::clearStack()
{
    manager.clear();
}

void CurveEditor::setUndoLevels(ZK_UINT levels)
{
    manager.setMaxStackSize(levels);
}

void CurveEditor::setEnableUndo(ZK_BOOL enable)
{
    manager.setEnable(enable);
}

void CurveEditor::selectAllKeys()
{
    functionEditor->canvas().selectAllKeys();
    refreshEditor();
}

void CurveEditor::selectNoneKeys()
{
    functionEditor->canvas().deselectAllKeys();
    functionEditor->refreshKeysDialog();
}

void CurveEditor::deleteSelectedKeys()
{
    functionEditor->canvas().deleteSelectedNodes();
    refreshEditor();
    functionEditor->refreshKeysDialog();
}

void CurveEditor::flatTangents()
{
    functionEditor->canvas().flatTangents();
    functionEditor->canvas().updateCanvas();
    functionEditor->refreshKeysDialog();
}

void CurveEditor::breakTangents()
{
    functionEditor->canvas().setTangentsBroken(true);
    functionEditor->canvas().updateCanvas();
    functionEditor->refreshKeysDialog();
}

void CurveEditor::unifyTangents()
{
    functionEditor->canvas().setTangentsBroken(false);
    functionEditor->canvas().updateCanvas();
    functionEditor->refreshKeysDialog();
}
