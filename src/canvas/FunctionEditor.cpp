// Construction, and the order in which an event passes logic, view and key dialog.

#include "canvas/FunctionEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/WheelTurns.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveVisit.h"
#include "files/CurveType.h"
#include "graphs/MousePixel.h"
#include "widgets/CurveKeysDialog.h"

#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QPalette>
#include <QPointer>
#include <QWheelEvent>

#include <utility>

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

/// Texts may be in another font from here on, or the pictures are not seen for some time.
bool changesLook(const QEvent* event)
{
    switch (event->type()) {
    case QEvent::ApplicationFontChange:
    case QEvent::FontChange:
    case QEvent::Hide:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
        return true;
    default:
        return false;
    }
}

} // namespace

FunctionEditor::FunctionEditor(QWidget* parent, CurveEditor* editor)
    : QWidget(parent)
    , logic(std::make_unique<CanvasFunctionBase>(this, editor))
    , wheel(std::make_unique<WheelTurns>())
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
    const CurveVisit visit(isInput ? &logic->tree() : nullptr);
    if (isInput) {
        logic->watchModifiers(static_cast<QInputEvent*>(event));
    }
    if (losesMouse(event)) {
        logic->endGesture();
    }
    if (changesLook(event)) {
        logic->dropLayers();
    }
    if (event->type() == QEvent::NativeGesture &&
        nativeGestureEvent(static_cast<QNativeGestureEvent*>(event))) {
        return true;
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
        const bool isBand = rubberDrag && (rectActive || rectValid);
        const QRect before = bandPlace();
        logic->move(event);
        viewMove(event);
        showSelectedKeys(false); // a drag opens and closes no field
        if (isBand) {
            updateMoved(before, bandPlace());
        } else {
            logic->updateCanvas();
        }
    }
    logic->watchModifiers(event);
    reportCursor(event);
}

void FunctionEditor::mouseReleaseEvent(QMouseEvent* event)
{
    if (!logic->ignoresRelease(event->button())) {
        endDrag();
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
    if (WheelTurns::isSideways(*event)) {
        slideBy(-wheel->takePan(*event));
    } else {
        wheelTurn(wheel->takeZoom(*event), mousePixel(event->position()));
    }
    canvasDirty = true;
    logic->updateCanvas();
    event->accept();
}

bool FunctionEditor::nativeGestureEvent(QNativeGestureEvent* event)
{
    if (event->gestureType() != Qt::ZoomNativeGesture) {
        return false;
    }
    magnify(1.0 + event->value(), mousePixel(event->position()));
    canvasDirty = true;
    logic->updateCanvas();
    event->accept();
    return true;
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

/// What lies outside of the region that a moved thing has left or entered was asked for by
/// somebody else, for reasons of his own.
void FunctionEditor::paintEvent(QPaintEvent* event)
{
    const bool onlyMoved = event->region().subtracted(std::exchange(moved, QRegion())).isEmpty();
    QPainter painter(this);
    try {
        logic->paint(&painter, onlyMoved);
    } catch (
        ...) { // thrown by a host's refresh function: nothing may leave an event of the toolkit
    }
}

void FunctionEditor::updateMoved(const QRect& before, const QRect& after)
{
    if (logic->isNoticeDue()) {
        logic->updateCanvas();
        return;
    }
    // Ratios that are no whole numbers may make a little more of what is asked for.
    constexpr int margin = 4;
    for (const QRect& place : {before, after}) {
        if (!place.isEmpty()) {
            moved += place.adjusted(-margin, -margin, margin, margin);
            update(place);
        }
    }
}

/// The rubber band with its outline.
QRect FunctionEditor::bandPlace() const
{
    constexpr int reach = 3;
    return rubberRect().normalized().adjusted(-reach, -reach, reach, reach).intersected(rect());
}

QRect FunctionEditor::timeLineStrip() const
{
    constexpr int reach = 3; // its width and more
    const int pixel = pixelX(timeLine);
    return QRect(pixel - reach, 0, 2 * reach + 1, height()).intersected(rect());
}

void FunctionEditor::moveTimeLine(const double& time)
{
    const QRect before = timeLineStrip();
    timeLine = time;
    canvasDirty = true;
    updateMoved(before, timeLineStrip());
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
