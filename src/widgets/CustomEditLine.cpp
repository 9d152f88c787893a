#include "widgets/CustomEditLine.h"

#include "core/Truncate.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int longestText = 15;
constexpr float stepPerPixel = 0.005F;
/// Stands for several differing values.
const QLatin1String severalValues("...");

/// The text as a number that is finite: what is too large for a double gives the largest one, and
/// "nan" and "inf" are words like any other.
double numberIn(const QString& text)
{
    bool ok = false;
    const double number = text.toDouble(&ok);
    if (std::isfinite(number)) {
        return number;
    }
    if (ok || std::isnan(number)) {
        return 0.0;
    }
    return std::copysign(std::numeric_limits<double>::max(), number);
}

/// As a 32-bit float; infinite where that holds no more.
float magnitudeOf(double value)
{
    const double magnitude = std::fabs(value);
    return magnitude > std::numeric_limits<float>::max() ? std::numeric_limits<float>::infinity()
                                                         : static_cast<float>(magnitude);
}

/// Away from the user is positive; a sideways turn is none. With Alt held some platforms deliver
/// every turn as a sideways one.
int turnOf(const QWheelEvent& event)
{
    const QPoint turn = event.angleDelta();
    const bool isTurnedRound = event.modifiers().testFlag(Qt::AltModifier) && turn.y() == 0;
    return isTurnedRound ? turn.x() : turn.y();
}

} // namespace

CustomEditLine::CustomEditLine(QWidget* parent)
    : QLineEdit(parent)
{
    setAlignment(Qt::AlignRight);
    setMaxLength(longestText);
    setMouseTracking(true);
    connect(this, &QLineEdit::editingFinished, this, &CustomEditLine::checkTextBounds);
}

void CustomEditLine::setValue(const double& value)
{
    showText(QString::number(value, 'f', decimals));
    setToolTip(text());
}

void CustomEditLine::showText(const QString& newText)
{
    if (newText == text() && !isModified()) {
        return;
    }
    const bool isAllSelected = hasFocus() && hasSelectedText() && selectedText() == text();
    setText(newText);
    if (isAllSelected) {
        selectAll();
    }
}

void CustomEditLine::setDecimals(const int& number)
{
    decimals = std::clamp(number, 0, mostDecimals);
}

void CustomEditLine::setBounds(const double& minimum, const double& maximum)
{
    minValue = minimum;
    maxValue = maximum;
}

void CustomEditLine::checkTextBounds()
{
    // The toolkit counts a text that the program set as an edit as well. Sending it on would round
    // a value to the decimals shown whenever the user merely tabs through the field.
    if (leaving && !isModified()) {
        return;
    }
    if (text() == severalValues) {
        return;
    }
    const double value = held(textValue());
    setValue(value);
    emit newValueTyped(value, this);
}

void CustomEditLine::keyPressEvent(QKeyEvent* event)
{
    returning = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QLineEdit::keyPressEvent(event);
    if (returning) {
        returning = false;
        emit newValueTyped(held(textValue()), this);
    }
}

void CustomEditLine::mousePressEvent(QMouseEvent* event)
{
    QLineEdit::mousePressEvent(event);
    if (event->button() == Qt::RightButton) {
        return;
    }
    dragging = true;
    moved = false;
    pressedOnce = true;
    dragStartY = truncateToPixel(event->globalPosition().y());
    dragStartValue = textValue();
    emit mousePressEditLine();
}

void CustomEditLine::mouseMoveEvent(QMouseEvent* event)
{
    QLineEdit::mouseMoveEvent(event);
    if (event->button() == Qt::RightButton || !dragging) {
        return;
    }
    if ((event->buttons() & ~Qt::MouseButtons(Qt::RightButton)) == Qt::NoButton) {
        endDrag();
        return;
    }
    const int delta = truncateToPixel(event->globalPosition().y()) - dragStartY;
    moved = moved || delta != 0;
    if (!moved) {
        return; // a click with an unsteady hand must not round the value to the decimals shown
    }
    if (delta == 0) {
        setByMouse(dragStartValue); // an infinite magnitude times zero would be no number
        return;
    }
    const double step = static_cast<float>(delta) * stepPerPixel;
    setByMouse(dragStartValue - (magnitudeOf(dragStartValue) + 1.0) * step);
}

void CustomEditLine::mouseReleaseEvent(QMouseEvent* event)
{
    const bool wasDrag = dragging && moved;
    const QString shown = text();
    QLineEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::RightButton) {
        return;
    }
    if (wasDrag) {
        showText(shown); // some platforms paste at the release of the middle button
    }
    dragging = false;
    if (!selectedOnce) {
        selectAll();
        selectedOnce = true;
    }
    emit mouseReleaseEditLine();
}

void CustomEditLine::focusOutEvent(QFocusEvent* event)
{
    {
        const QScopedValueRollback<bool> guard(leaving, true);
        QLineEdit::focusOutEvent(event);
    }
    selectedOnce = false;
}

bool CustomEditLine::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::ContextMenu:
    case QEvent::WindowBlocked:
    case QEvent::WindowDeactivate:
        endDrag();
        break;
    default:
        break;
    }
    return QLineEdit::event(event);
}

void CustomEditLine::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        endDrag();
    }
}

void CustomEditLine::hideEvent(QHideEvent* event)
{
    QLineEdit::hideEvent(event);
    endDrag();
}

void CustomEditLine::wheelEvent(QWheelEvent* event)
{
    const int turn = turnOf(*event);
    if (turn == 0 || text().isEmpty() || text() == severalValues) {
        return; // the mark of a gesture's begin or end, or no value to start from
    }
    const double base = pressedOnce ? dragStartValue : textValue();
    const double step = turn > 0 ? stepPerPixel : -stepPerPixel;
    setByMouse(base - (std::fabs(base) + 1.0) * step);
}

double CustomEditLine::held(const double& value) const
{
    if (value < minValue) {
        return minValue;
    }
    return value > maxValue ? maxValue : value;
}

double CustomEditLine::textValue() const
{
    return numberIn(text());
}

void CustomEditLine::setByMouse(const double& value)
{
    const double result = held(value);
    setValue(result);
    emit newValueSet(result, this);
}

/// A field that is disabled or hidden, or from which a menu or a modal dialog takes the mouse,
/// never hears of the release. Later moves of the mouse, which it is told of without a press, would
/// go on with the drag.
void CustomEditLine::endDrag()
{
    if (dragging) {
        dragging = false;
        emit mouseReleaseEditLine();
    }
}

void CustomEditLine::beginAnew()
{
    pressedOnce = false;
    returning = false;
    endDrag();
}
