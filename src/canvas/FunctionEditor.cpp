#include "canvas/FunctionEditor.h"

#include "canvas/MousePixel.h"
#include "curves/CurveNodeBase.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QPointer>
#include <QWheelEvent>

FunctionEditor::FunctionEditor(QWidget* parent, CurveEditor* editor)
    : QWidget(parent)
    , logic(this, editor)
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
}

FunctionEditor::~FunctionEditor() = default;

CanvasFunctionBase& FunctionEditor::canvas()
{
    return logic;
}

void FunctionEditor::refreshKeysDialog()
{
    // The dialog of exact values is not built yet; it will be told of the selection here.
}

void FunctionEditor::reportCursor(QMouseEvent* event)
{
    const QPoint pixel = mousePixel(event->position());
    const double time = timeAt(pixel.x());
    double functionValue = 0.0;
    const QList<CurveNode*> curves = logic.editingCurves();
    if (!curves.isEmpty()) {
        if (auto* curve = dynamic_cast<CurveNodeBase*>(curves.first())) {
            functionValue = curve->evaluate(time);
        }
    }
    emit setFuncPosInfo(time, valueAt(pixel.y()), functionValue);
}

bool FunctionEditor::event(QEvent* event)
{
    if (CanvasFunctionBase::carriesModifiers(event)) {
        logic.watchModifiers(static_cast<QInputEvent*>(event));
    }
    return QWidget::event(event);
}

void FunctionEditor::mousePressEvent(QMouseEvent* event)
{
    clearDrags();
    const QPointer<FunctionEditor> self(this);
    const bool isConsumed = logic.press(event);
    if (!self) {
        return; // the host deleted the editor while the menu of a right press was open
    }
    if (!isConsumed) {
        viewPress(event);
    }
    if (logic.isEditing()) {
        refreshKeysDialog();
    }
    logic.updateCanvas();
    reportCursor(event);
}

void FunctionEditor::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() != Qt::NoButton) {
        logic.move(event);
        viewMove(event);
        logic.updateCanvas();
    }
    logic.watchModifiers(event);
    reportCursor(event);
}

void FunctionEditor::mouseReleaseEvent(QMouseEvent* event)
{
    if (rubberDrag && viewDrag) {
        applyRect(true);
    }
    clearDrags();
    zoomMode = false;
    logic.release(event);
    if (logic.isEditing()) {
        refreshKeysDialog();
    }
    logic.updateCanvas();
}

void FunctionEditor::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!logic.isEditing()) {
        return;
    }
    logic.doubleClick(event);
    refreshKeysDialog();
    logic.updateCanvas();
}

void FunctionEditor::wheelEvent(QWheelEvent* event)
{
    // With Alt held some platforms deliver the turn on the other axis.
    const QPoint turn = event->angleDelta();
    wheelTurn(turn.y() != 0 ? turn.y() : turn.x(), mousePixel(event->position()));
    canvasDirty = true;
    logic.updateCanvas();
    event->accept();
}

// Neither key handler calls its base: a key left unaccepted would climb to the dialog, which
// hands every key to the canvas, and so run twice.
void FunctionEditor::keyPressEvent(QKeyEvent* event)
{
    logic.keyPress(event);
    refreshKeysDialog();
    logic.updateCanvas();
    event->accept();
}

void FunctionEditor::keyReleaseEvent(QKeyEvent* event)
{
    logic.watchModifiers(event);
    event->accept();
}

void FunctionEditor::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    logic.paint(&painter);
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
    logic.currentNodeHasChanged();
}
