// The axis in frames or seconds, and the read-outs of the cursor.

#include "editor/CurveEditor.h"

#include "canvas/FunctionEditor.h"
#include "editor/Timecode.h"
#include "widgets/CurveKeysDialog.h"
#include "widgets/CustomEditLine.h"

#include <QLabel>

#include <algorithm>

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
    CurveKeysDialog* const keys = functionEditor->keysDialog();
    keys->posXLabel->setText(tr("Time:"));
    if (!functionEditor->showFrames) {
        return;
    }
    keys->endGesture();
    functionEditor->showFrames = false;
    functionEditor->canvasDirty = true;
    keys->posX->setValue(fieldValue(keys->posX) / functionEditor->fps);
    posX->setText(keys->posX->text());
    posX->setToolTip(posX->text());
    keys->distrustTimes();
    repaintCanvas();
}

/// Here it is posY whose tool tip is renewed; posX keeps its old one.
void CurveEditor::setShowFrames()
{
    CurveKeysDialog* const keys = functionEditor->keysDialog();
    keys->posXLabel->setText(tr("Frame:"));
    if (functionEditor->showFrames) {
        return;
    }
    keys->endGesture();
    functionEditor->showFrames = true;
    functionEditor->canvasDirty = true;
    keys->posX->setValue(fieldValue(keys->posX) * functionEditor->fps);
    posX->setText(keys->posX->text());
    posY->setToolTip(posY->text());
    keys->distrustTimes();
    repaintCanvas();
}

void CurveEditor::switchFramesTime()
{
    if (functionEditor->showFrames) {
        setShowTime();
    } else {
        setShowFrames();
    }
}

void CurveEditor::setPosX(ZK_DOUBLE valueX)
{
    CustomEditLine* const keysPosX = functionEditor->keysDialog()->posX;
    keysPosX->setValue(functionEditor->showFrames ? valueX * functionEditor->fps : valueX);
    posX->setText(keysPosX->text());
    posX->setToolTip(posX->text());
}

void CurveEditor::setFuncPosInfo(ZK_DOUBLE valueX, ZK_DOUBLE valueY, ZK_DOUBLE val)
{
    const int decimals = std::min(numberOfDecimals, CustomEditLine::mostDecimals);
    const auto text = [&decimals](const QString& pattern, const double& number) {
        return pattern.arg(number, 0, 'f', decimals);
    };
    const double fps = functionEditor->fps;
    frameLabel->setText(functionEditor->showFrames ? text(tr("F %1"), fps * valueX)
                                                   : text(tr("t %1"), valueX));
    valueLabel->setText(text(tr("y %1"), valueY));
    functionLabel->setText(text(tr("f(x) %1"), val));
    timecodeLabel->setText(tr("TC %1").arg(
        curve_editor::timecodeText(valueX, fps, numberOfDecimals, functionEditor->frameDigits)));
}

void CurveEditor::setNumberOfDecimals(const int& decimals)
{
    numberOfDecimals = decimals;
    // Those of the key dialog are among them: its parent is the editor.
    for (CustomEditLine* const field : findChildren<CustomEditLine*>()) {
        field->setDecimals(decimals);
    }
    refreshEditor();
}

const int& CurveEditor::getNumberOfDecimals() const
{
    return numberOfDecimals;
}
