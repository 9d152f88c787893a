#include "canvas/RubberBand.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasHost.h"
#include "canvas/GestureStage.h"
#include "canvas/ModeControl.h"
#include "graphs/ViewPort.h"

using curve_editor::CanvasMode;

void RubberBand::begin(CanvasMode mode)
{
    commands.beginSelect();
    isHeld = true;
    // A rectangle of nothing, until the view draws one.
    ViewPort& view = *stage.view;
    view.newMinX = view.newMaxX = stage.lastWorld.x();
    view.newMinY = view.newMaxY = stage.lastWorld.y();
    stage.host->modes().setMode(mode);
}

void RubberBand::end(CanvasMode mode)
{
    if (stage.hasKeysToEdit() && isRubberMode(mode)) {
        commands.beginSelect();
        stage.canvas.selectInRect(mode == CanvasMode::ADDING2SEL);
        commands.commitSelect();
    }
    CanvasGesture::end(mode);
}

bool RubberBand::isOfMouse() const
{
    return isHeld;
}

bool RubberBand::admits(CanvasMode mode) const
{
    return isRubberMode(mode);
}
