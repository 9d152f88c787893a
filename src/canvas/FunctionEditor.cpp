#include "canvas/FunctionEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasVisit.h"
#include "canvas/MousePixel.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveType.h"
#include "widgets/CurveKeysDialog.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QPointer>
#include <QWheelEvent>

namespace {

/// From here on the release may go to somebody else.
bool losesMouse(const QEvent* event)
{
    switch (event->type()) {
    case QEvent::EnabledChange:
    case QEvent::Hide:
    case QEvent::WindowBlocked:
    case QEvent::WindowDeactivate:
        return true;
    case QEvent::FocusOut:
        return static_cast<const QFocusEvent*>(event)->reason() == Qt::PopupFocusReason;
    default:
        return false;
    }
}

} // namespace

FunctionEditor::FunctionEditor(QWidget* parent, CurveEditor* editor)
    : QWidget(parent)
    , logic(std::make_unique<CanvasFunctionBase>(this, editor))
    , keys(editor ? std::make_unique<CurveKeysDialog>(editor) : nullptr)
{
    setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding);
    if (parent) {
        setMinimumSize(parent->minimumSize());
        setMaximumSize(parent->maximumSize());
    }
    QPalette colors = palette();
    colors.setColor(QPalette::Window, QColor(192, 192, 192, 255));
    setPalette(colors);
    setMouseTracking(true);
    if (keys) {
        connect(keys.get(), SIGNAL(nodeTcbChanged()), this, SLOT(currentNodeHasChanged()));
    }
}

FunctionEditor::~FunctionEditor() = default;

CanvasFunctionBase& FunctionEditor::canvas()
{
    return *logic;
}

CurveKeysDialog* FunctionEditor::keysDialog() const
{
    return keys.get();
}

void FunctionEditor::refreshKeysDialog()
{
    showSelectedKeys(hasKeys(logic->editingType()));
}

void FunctionEditor::showSelectedKeys(bool opensFields)
{
    if (keys) {
        keys->showSelection(logic->keyContainers(), opensFields);
    }
}

void FunctionEditor::reportCursor(QMouseEvent* event)
{
    const QPoint pixel = mousePixel(event->position());
    const double time = timeAt(pixel.x());
    double functionValue = 0.0;
    const QList<CurveNode*> curves = logic->editingCurves();
    if (!curves.isEmpty()) {
        if (auto* curve = dynamic_cast<CurveNodeBase*>(curves.first())) {
            const QPointer<FunctionEditor> self(this);
            try {
                functionValue = curve->evaluate(time);
            } catch (...) { // the same as in a paint
            }
            if (!self) {
                return; // a refresh function has deleted the editor
            }
        }
    }
    emit setFuncPosInfo(time, valueAt(pixel.y()), functionValue);
}

bool FunctionEditor::event(QEvent* event)
{
    const bool isInput = CanvasFunctionBase::carriesModifiers(event);
    // A gesture may go on with its curves after it has reported to the host.
    const CanvasVisit visit(isInput ? logic.get() : nullptr);
    if (isInput) {
        logic->watchModifiers(static_cast<QInputEvent*>(event));
    }
    if (losesMouse(event)) {
        logic->endGesture();
    }
    return QWidget::event(event);
}

void FunctionEditor::mousePressEvent(QMouseEvent* event)
{
    const QPointer<FunctionEditor> self(this);
    if (logic->hasLostButton(event->buttons())) {
        logic->endLostGesture(event);
    }
    if (!logic->ignoresPress(event->button())) {
        logic->endLostGesture(event);
        clearDrags();
        const bool isConsumed = logic->press(event);
        if (!self) {
            return; // the host deleted the editor while the menu of a right press was open
        }
        if (!isConsumed) {
            viewPress(event);
        }
    }
    if (logic->isEditing()) {
        refreshKeysDialog();
    }
    logic->updateCanvas();
    reportCursor(event);
}

void FunctionEditor::mouseMoveEvent(QMouseEvent* event)
{
    if (logic->hasLostButton(event->buttons())) {
        logic->endLostGesture(event);
    }
    if (event->buttons() != Qt::NoButton) {
        logic->move(event);
        viewMove(event);
        showSelectedKeys(false); // a drag opens and closes no field
        logic->updateCanvas();
    }
    logic->watchModifiers(event);
    reportCursor(event);
}

void FunctionEditor::mouseReleaseEvent(QMouseEvent* event)
{
    if (!logic->ignoresRelease(event->button())) {
        if (rubberDrag && viewDrag) {
            applyRect(true);
        }
        clearDrags();
        zoomMode = false;
        logic->release(event);
    }
    if (logic->isEditing()) {
        refreshKeysDialog();
    }
    logic->updateCanvas();
}

void FunctionEditor::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!logic->isEditing()) {
        return;
    }
    if (!logic->ignoresPress(event->button())) {
        logic->endLostGesture(event);
        logic->doubleClick(event);
    }
    refreshKeysDialog();
    logic->updateCanvas();
}

void FunctionEditor::wheelEvent(QWheelEvent* event)
{
    // With Alt held some platforms deliver the turn on the other axis.
    const QPoint turn = event->angleDelta();
    wheelTurn(turn.y() != 0 ? turn.y() : turn.x(), mousePixel(event->position()));
    canvasDirty = true;
    logic->updateCanvas();
    event->accept();
}

// Neither key handler calls its base: a key left unaccepted would climb to the dialog, which
// hands every key to the canvas, and so run twice.
void FunctionEditor::keyPressEvent(QKeyEvent* event)
{
    logic->keyPress(event);
    const int key = event->key();
    const bool opensFields = key == Qt::Key_T || key == Qt::Key_C || key == Qt::Key_Tab;
    showSelectedKeys(opensFields);
    logic->updateCanvas();
    event->accept();
}

void FunctionEditor::keyReleaseEvent(QKeyEvent* event)
{
    logic->watchModifiers(event);
    event->accept();
}

void FunctionEditor::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    try {
        logic->paint(&painter);
    } catch (
        ...) { // thrown by a host's refresh function: nothing may leave an event of the toolkit
    }
}

void FunctionEditor::resizeEvent(QResizeEvent* event)
{
    if (viewWidth != event->size().width() || viewHeight != event->size().height()) {
        canvasDirty = true;
    }
    viewWidth = event->size().width();
    viewHeight = event->size().height();
    update();
}

void FunctionEditor::currentNodeHasChanged()
{
    logic->currentNodeHasChanged();
}
