// The part of the curves that is in view: time line, rate, ranges, fitting.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "core/Truncate.h"
#include "editor/CurveEditorPrivate.h"
#include "widgets/CurveKeysDialog.h"

#include <cmath>

void CurveEditor::setTimeLine(ZK_DOUBLE time)
{
    d->functionEditor->moveTimeLine(time);
}

void CurveEditor::setTimeLine(ZK_INT frame)
{
    d->functionEditor->moveTimeLine(frame / d->functionEditor->fps);
}

void CurveEditor::setFps(ZK_DOUBLE framesPerSecond)
{
    CurveKeysDialog* const keys = d->keysDialog();
    if (d->functionEditor->showFrames && framesPerSecond != d->functionEditor->fps) {
        keys->endGesture(); // its numbers are frames of the former rate
    }
    d->functionEditor->fps = framesPerSecond;
    d->functionEditor->frameDigits =
        truncateToInt(std::ceil(std::log(framesPerSecond) / std::log(10.0)));
    keys->renewTimes();
    d->repaintCanvas();
}

double CurveEditor::getFps() const
{
    return d->functionEditor->fps;
}

void CurveEditor::setTimeRange(ZK_DOUBLE timeMin, ZK_DOUBLE timeMax)
{
    setMinTime(timeMin);
    setMaxTime(timeMax);
}

void CurveEditor::setMinTime(const double& time)
{
    d->functionEditor->minX = time;
    d->functionEditor->canvasDirty = true;
}

void CurveEditor::setMaxTime(const double& time)
{
    d->functionEditor->maxX = time;
    d->repaintCanvas();
}

void CurveEditor::setMinValue(ZK_DOUBLE value)
{
    d->functionEditor->minY = value;
    d->repaintCanvas();
}

void CurveEditor::setMaxValue(ZK_DOUBLE value)
{
    d->functionEditor->maxY = value;
    d->repaintCanvas();
}

bool CurveEditor::isModeFrames() const
{
    return d->functionEditor->showFrames;
}

bool CurveEditor::isModeTime() const
{
    return !d->functionEditor->showFrames;
}

/// The key dialog's label keeps its word, whatever unit the field has from now on.
void CurveEditor::resetViewport()
{
    d->canvas().endGesture(); // whose rectangle this would use
    CurveKeysDialog* const keys = d->keysDialog();
    if (!d->functionEditor->showFrames) {
        keys->endGesture();
    }
    d->functionEditor->resetView();
    keys->renewTimes();
    d->canvas().updateCanvas();
}

void CurveEditor::centerTimeline()
{
    d->canvas().endGesture();
    d->functionEditor->centerTimeline();
    d->repaintAll();
}

void CurveEditor::completeViewport()
{
    d->functionEditor->completeH();
    d->functionEditor->completeV();
    d->repaintAll();
}

void CurveEditor::completeViewportH()
{
    d->functionEditor->completeH();
    d->repaintAll();
}

void CurveEditor::completeViewportV()
{
    d->functionEditor->completeV();
    d->repaintAll();
}

void CurveEditor::completeViewportSel()
{
    d->functionEditor->completeSelH();
    d->functionEditor->completeSelV();
    d->repaintAll();
}

void CurveEditor::completeViewportSelH()
{
    d->functionEditor->completeSelH();
    d->repaintAll();
}

void CurveEditor::completeViewportSelV()
{
    d->functionEditor->completeSelV();
    d->repaintAll();
}

// A choice from a drop-down becomes what its button repeats.

void CurveEditor::completeViewportBtn()
{
    d->actions.setDefaultButton(fitViewButton, fitButton);
    completeViewport();
}

void CurveEditor::completeViewportHBtn()
{
    d->actions.setDefaultButton(fitHorizontalViewButton, fitButton);
    completeViewportH();
}

void CurveEditor::completeViewportVBtn()
{
    d->actions.setDefaultButton(fitVerticalViewButton, fitButton);
    completeViewportV();
}

void CurveEditor::completeViewportSelBtn()
{
    d->actions.setDefaultButton(fitViewToSelectionButton, fitSelectionButton);
    completeViewportSel();
}

void CurveEditor::completeViewportSelHBtn()
{
    d->actions.setDefaultButton(fitHorizontalViewToSelectionButton, fitSelectionButton);
    completeViewportSelH();
}

void CurveEditor::completeViewportSelVBtn()
{
    d->actions.setDefaultButton(fitVerticalViewToSelectionButton, fitSelectionButton);
    completeViewportSelV();
}

void CurveEditor::showKeyProperties()
{
    CurveKeysDialog* const keys = d->keysDialog();
    if (keys->isVisible()) {
        keys->close();
    } else {
        keys->show();
    }
    d->actions.checkButton(showKeyPropertiesButton, keys->isVisible());
}

void CurveEditor::enableShowKeyPptiesBtn()
{
    d->actions.checkButton(showKeyPropertiesButton, true);
}

void CurveEditor::disableShowKeyPptiesBtn()
{
    d->actions.checkButton(showKeyPropertiesButton, false);
}
