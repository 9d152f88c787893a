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
float magnitudeOf(const double& value)
{
    const double magnitude = std::fabs(value);
    return magnitude > std::numeric_limits<float>::max() ? std::numeric_limits<float>::infinity()
                                                         : static_cast<float>(magnitude);
}

/// Away from the user is positive. With Alt held some platforms deliver the turn as a sideways one.
int turnOf(const QWheelEvent& event)
{
    const QPoint turn = event.angleDelta();
    return turn.y() != 0 ? turn.y() : turn.x();
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
    setText(QString::number(value, 'f', decimals));
    setToolTip(text());
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
    if (text() == QLatin1String("...")) {
        return;
    }
    const double value = held(textValue());
    setValue(value);
    emit newValueTyped(value, this);
}

void CustomEditLine::keyPressEvent(QKeyEvent* event)
{
    QLineEdit::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
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
    const int delta = truncateToPixel(event->globalPosition().y()) - dragStartY;
    if (delta == 0) {
        setByMouse(dragStartValue); // an infinite magnitude times zero would be no number
        return;
    }
    const double step = static_cast<float>(delta) * stepPerPixel;
    setByMouse(dragStartValue - (magnitudeOf(dragStartValue) + 1.0) * step);
}

void CustomEditLine::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::RightButton) {
        return;
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
    if (event->type() == QEvent::ContextMenu || event->type() == QEvent::WindowBlocked) {
        breakOffDrag();
    }
    return QLineEdit::event(event);
}

void CustomEditLine::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        breakOffDrag();
    }
}

void CustomEditLine::hideEvent(QHideEvent* event)
{
    QLineEdit::hideEvent(event);
    breakOffDrag();
}

void CustomEditLine::wheelEvent(QWheelEvent* event)
{
    const int turn = turnOf(*event);
    if (turn == 0) {
        return; // the mark of a gesture's begin or end
    }
    const double step = turn > 0 ? stepPerPixel : -stepPerPixel;
    setByMouse(dragStartValue - (std::fabs(dragStartValue) + 1.0) * step);
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
void CustomEditLine::breakOffDrag()
{
    if (dragging) {
        dragging = false;
        emit mouseReleaseEditLine();
    }
}
