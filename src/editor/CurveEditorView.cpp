// The part of the curves that is in view: time line, rate, ranges, fitting.

#include "editor/CurveEditor.h"

#include "canvas/FunctionEditor.h"
#include "core/Truncate.h"
#include "widgets/CurveKeysDialog.h"

#include <cmath>

void CurveEditor::setTimeLine(ZK_DOUBLE time)
{
    functionEditor->timeLine = time;
    repaintCanvas();
}

void CurveEditor::setTimeLine(ZK_INT frame)
{
    functionEditor->timeLine = frame / functionEditor->fps;
    repaintCanvas();
}

void CurveEditor::setFps(ZK_DOUBLE framesPerSecond)
{
    CurveKeysDialog* const keys = functionEditor->keysDialog();
    if (functionEditor->showFrames && framesPerSecond != functionEditor->fps) {
        keys->endGesture(); // its numbers are frames of the former rate
    }
    functionEditor->fps = framesPerSecond;
    functionEditor->frameDigits =
        truncateToInt(std::ceil(std::log(framesPerSecond) / std::log(10.0)));
    keys->renewTimes();
    repaintCanvas();
}

double CurveEditor::getFps() const
{
    return functionEditor->fps;
}

void CurveEditor::setTimeRange(ZK_DOUBLE timeMin, ZK_DOUBLE timeMax)
{
    setMinTime(timeMin);
    setMaxTime(timeMax);
}

void CurveEditor::setMinTime(const double& time)
{
    functionEditor->minX = time;
    functionEditor->canvasDirty = true;
}

void CurveEditor::setMaxTime(const double& time)
{
    functionEditor->maxX = time;
    repaintCanvas();
}

void CurveEditor::setMinValue(ZK_DOUBLE value)
{
    functionEditor->minY = value;
    repaintCanvas();
}

void CurveEditor::setMaxValue(ZK_DOUBLE value)
{
    functionEditor->maxY = value;
    repaintCanvas();
}

bool CurveEditor::isModeFrames() const
{
    return functionEditor->showFrames;
}

bool CurveEditor::isModeTime() const
{
    return !functionEditor->showFrames;
}

/// The key dialog's label keeps its word, whatever unit the field has from now on.
void CurveEditor::resetViewport()
{
    functionEditor->canvas().endGesture(); // whose rectangle this would use
    CurveKeysDialog* const keys = functionEditor->keysDialog();
    if (!functionEditor->showFrames) {
        keys->endGesture();
    }
    functionEditor->resetView();
    keys->renewTimes();
    functionEditor->canvas().updateCanvas();
}

void CurveEditor::centerTimeline()
{
    functionEditor->canvas().endGesture();
    functionEditor->centerTimeline();
    repaintAll();
}

void CurveEditor::completeViewport()
{
    functionEditor->completeH();
    functionEditor->completeV();
    repaintAll();
}

void CurveEditor::completeViewportH()
{
    functionEditor->completeH();
    repaintAll();
}

void CurveEditor::completeViewportV()
{
    functionEditor->completeV();
    repaintAll();
}

void CurveEditor::completeViewportSel()
{
    functionEditor->completeSelH();
    functionEditor->completeSelV();
    repaintAll();
}

void CurveEditor::completeViewportSelH()
{
    functionEditor->completeSelH();
    repaintAll();
}

void CurveEditor::completeViewportSelV()
{
    functionEditor->completeSelV();
    repaintAll();
}

// A choice from a drop-down becomes what its button repeats.

void CurveEditor::completeViewportBtn()
{
    setDefaultButton(toolButtonActions[fitViewButton], fitButton);
    completeViewport();
}

void CurveEditor::completeViewportHBtn()
{
    setDefaultButton(toolButtonActions[fitHorizontalViewButton], fitButton);
    completeViewportH();
}

void CurveEditor::completeViewportVBtn()
{
    setDefaultButton(toolButtonActions[fitVerticalViewButton], fitButton);
    completeViewportV();
}

void CurveEditor::completeViewportSelBtn()
{
    setDefaultButton(toolButtonActions[fitViewToSelectionButton], fitSelectionButton);
    completeViewportSel();
}

void CurveEditor::completeViewportSelHBtn()
{
    setDefaultButton(toolButtonActions[fitHorizontalViewToSelectionButton], fitSelectionButton);
    completeViewportSelH();
}

void CurveEditor::completeViewportSelVBtn()
{
    setDefaultButton(toolButtonActions[fitVerticalViewToSelectionButton], fitSelectionButton);
    completeViewportSelV();
}

void CurveEditor::repaintCanvas()
{
    functionEditor->canvasDirty = true;
    functionEditor->canvas().updateCanvas();
}

void CurveEditor::repaintAll()
{
    repaintCanvas();
    QWidget::update();
}

void CurveEditor::showKeyProperties()
{
    CurveKeysDialog* const keys = functionEditor->keysDialog();
    if (keys->isVisible()) {
        keys->close();
    } else {
        keys->show();
    }
    checkButton(showKeyPropertiesButton, keys->isVisible());
}

void CurveEditor::enableShowKeyPptiesBtn()
{
    checkButton(showKeyPropertiesButton, true);
}

void CurveEditor::disableShowKeyPptiesBtn()
{
    checkButton(showKeyPropertiesButton, false);
}
