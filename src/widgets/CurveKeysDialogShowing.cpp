// What the dialog shows, and which of its fields are open.

#include "widgets/CurveKeysDialog.h"

#include "widgets/InterpolationPositions.h"
#include "widgets/KeysDialogHost.h"

#include <QScopedValueRollback>

#include <limits>

using namespace curve_editor;

namespace {

/// Stands for several differing values; a field sends nothing when it is left with this text.
const QLatin1String severalValues("...");

} // namespace

void CurveKeysDialog::enableKeyFields(const bool& on)
{
    const QScopedValueRollback<bool> guard(isShowing, true);
    prevNode->setEnabled(on);
    nextNode->setEnabled(on);
    nodeTypeCombo->setEnabled(on);
    node->clear();
    for (int field = 0; field < keyFieldsCount; ++field) {
        const bool isPosition = field == timeField || field == valueField;
        for (CustomEditLine* const line : linesOf(static_cast<keyFields>(field))) {
            line->setEnabled(on);
            if (!on) {
                line->beginAnew();
            }
            if (!on && isPosition) {
                line->clear();
            }
        }
    }
    if (!on) {
        shown = ShownKeys();
    }
}

/// Several keys of one curve can't take one time, and have no one neighbour.
void CurveKeysDialog::enableSeveralKeys(const bool& singleEach)
{
    const QScopedValueRollback<bool> guard(isShowing, true);
    prevNode->setEnabled(false);
    nextNode->setEnabled(false);
    nodeTypeCombo->setEnabled(true);
    for (int field = 0; field < keyFieldsCount; ++field) {
        for (CustomEditLine* const line : linesOf(static_cast<keyFields>(field))) {
            line->setEnabled(field != timeField || singleEach);
        }
    }
}

void CurveKeysDialog::loadKeys(const QList<SplineCurveGraph*>& graphs)
{
    const QScopedValueRollback<bool> guard(isShowing, true);
    shownGraphs = graphs;
    const ShownKeys now = selectedKeys();
    if (!now.keys.isEmpty()) {
        beginFieldsAnew(now);
        sameKeysShown = now.keys == shown.keys;
        sameUnitShown = now.unit == shown.unit;
        shown = now;
        showKeys(now);
    }
}

/// Of the fields that come to stand for numbers of other keys, or for times in another unit.
void CurveKeysDialog::beginFieldsAnew(const ShownKeys& now)
{
    const bool areOthers = now.keys != shown.keys;
    for (int field = 0; field < keyFieldsCount; ++field) {
        if (areOthers || (field == timeField && now.unit != shown.unit)) {
            for (CustomEditLine* const line : linesOf(static_cast<keyFields>(field))) {
                line->beginAnew();
            }
        }
    }
}

void CurveKeysDialog::showKeys(const ShownKeys& now)
{
    node->setText(now.differences.index ? QStringLiteral("#") : QString::number(now.index));
    showPosition(now);
    for (int field = tensionField; field < keyFieldsCount; ++field) {
        const auto which = static_cast<keyFields>(field);
        showNumber(linesOf(which).first(), now.differences.fields[static_cast<std::size_t>(field)],
                   readField(now.reference, which));
    }
    if (now.differences.bezierMix) {
        for (CustomEditLine* const line : {tension, continuity, bias, incoming, outgoing}) {
            line->setEnabled(false);
        }
    }
    for (CustomEditLine* const line : {tension, continuity, bias}) {
        line->setBounds(-10.0, 10.0);
    }
    for (CustomEditLine* const line : {easeFrom, easeTo}) {
        line->setBounds(0.0, 1.0);
    }
    nodeTypeCombo->setCurrentIndex(positionOfInterpolation(now.reference.type));
    nodeTypeWidgetStack->setCurrentWidget(now.reference.type == zk_spline::bezier ? ioPage
                                                                                  : tcbPage);
    tcbCurve->showKey(now.reference);
}

void CurveKeysDialog::showPosition(const ShownKeys& now)
{
    if (now.differences.fields[timeField]) {
        showNumber(posX, true, 0.0);
        showTwin(posX);
    } else {
        setPosX(now.reference.time);
    }
    showNumber(posY, now.differences.fields[valueField], now.reference.value);
    showTwin(posY);
}

void CurveKeysDialog::setPosX(ZK_DOUBLE value)
{
    showNumber(posX, false, value * host->timeUnit());
    showTwin(posX);
}

void CurveKeysDialog::showNumber(CustomEditLine* line, bool differs, double value)
{
    if (isBeingTyped(line)) {
        return;
    }
    if (differs) {
        line->showText(severalValues);
        line->setToolTip(QString());
    } else {
        line->setValue(value);
    }
}

/// What the field of the dialog shows, on the menu bar.
void CurveKeysDialog::showTwin(const CustomEditLine* line)
{
    CustomEditLine* const twin = line == posX ? host->positionX() : host->positionY();
    if (!isBeingTyped(twin)) {
        twin->showText(line->text());
    }
}

/// A text that the user has begun stays, as long as the same keys are shown in the same unit: a
/// mere press of Shift in a field of the menu bar climbs to the canvas, which shows the selection
/// anew.
bool CurveKeysDialog::isBeingTyped(CustomEditLine* line) const
{
    const bool means = sameKeysShown && (sameUnitShown || fieldOf(line) != timeField);
    return means && line->hasFocus() && line->isModified();
}

void CurveKeysDialog::renewTimes()
{
    if (!shown.keys.isEmpty() && host->timeUnit() != shown.unit) {
        loadKeys(QList<SplineCurveGraph*>(shownGraphs));
    }
}

void CurveKeysDialog::distrustTimes()
{
    shown.unit = std::numeric_limits<double>::quiet_NaN();
}
