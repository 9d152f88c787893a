#include "canvas/CanvasGesture.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/GestureStage.h"
#include "files/CurveType.h"

#include <utility>

bool GestureStage::hasKeysToEdit() const
{
    return canvas.isEditing() && canvas.editingType() != expressionCurve;
}

CanvasGesture::CanvasGesture(GestureStage& gestureStage, PendingCommands&& open)
    : commands(std::move(open))
    , stage(gestureStage)
{}

CanvasGesture::~CanvasGesture() = default;

void CanvasGesture::step(const QPointF&) {}

void CanvasGesture::end(curve_editor::CanvasMode)
{
    commands.commitAll();
}

void CanvasGesture::cancel()
{
    commands.drop();
}

bool CanvasGesture::isOfMouse() const
{
    return false;
}

bool CanvasGesture::admits(curve_editor::CanvasMode) const
{
    return false;
}
