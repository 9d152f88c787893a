// The axis in frames or seconds, and the read-outs of the cursor.

#include "editor/CurveEditor.h"

#include "canvas/FunctionEditor.h"
#include "editor/CurveEditorPrivate.h"
#include "widgets/CurveKeysDialog.h"
#include "widgets/CustomEditLine.h"

namespace {

/// What a field holds as a number; a text that is none counts as 0, and so do the dots that stand
/// for several times.
double fieldValue(const CustomEditLine* field)
{
    const double value = field->text().toDouble();
    return qIsFinite(value) ? value : 0.0;
}

} // namespace

void CurveEditor::setShowTime()
{
    CurveKeysDialog* const keys = d->keysDialog();
    keys->posXLabel->setText(tr("Time:"));
    if (!d->functionEditor->showFrames) {
        return;
    }
    keys->endGesture();
    d->functionEditor->showFrames = false;
    d->functionEditor->canvasDirty = true;
    keys->posX->setValue(fieldValue(keys->posX) / d->functionEditor->fps);
    d->readout.showTimeOf(keys->posX);
    keys->distrustTimes();
    d->repaintCanvas();
}

/// Here it is posY whose tool tip is renewed; posX keeps its old one.
void CurveEditor::setShowFrames()
{
    CurveKeysDialog* const keys = d->keysDialog();
    keys->posXLabel->setText(tr("Frame:"));
    if (d->functionEditor->showFrames) {
        return;
    }
    keys->endGesture();
    d->functionEditor->showFrames = true;
    d->functionEditor->canvasDirty = true;
    keys->posX->setValue(fieldValue(keys->posX) * d->functionEditor->fps);
    positionX()->setText(keys->posX->text());
    positionY()->setToolTip(positionY()->text());
    keys->distrustTimes();
    d->repaintCanvas();
}

void CurveEditor::switchFramesTime()
{
    if (d->functionEditor->showFrames) {
        setShowTime();
    } else {
        setShowFrames();
    }
}

void CurveEditor::setPosX(ZK_DOUBLE valueX)
{
    CustomEditLine* const keysPosX = d->keysDialog()->posX;
    keysPosX->setValue(d->functionEditor->showFrames ? valueX * d->functionEditor->fps : valueX);
    d->readout.showTimeOf(keysPosX);
}

void CurveEditor::setFuncPosInfo(ZK_DOUBLE valueX, ZK_DOUBLE valueY, ZK_DOUBLE val)
{
    d->readout.showPointer(valueX, valueY, val, *d->functionEditor, d->numberOfDecimals);
}

void CurveEditor::setNumberOfDecimals(const int& decimals)
{
    d->numberOfDecimals = decimals;
    // Those of the key dialog are among them: its parent is the editor.
    for (CustomEditLine* const field : findChildren<CustomEditLine*>()) {
        field->setDecimals(decimals);
    }
    refreshEditor();
}

const int& CurveEditor::getNumberOfDecimals() const
{
    return d->numberOfDecimals;
}
