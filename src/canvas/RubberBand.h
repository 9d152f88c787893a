#pragma once

#include "canvas/CanvasGesture.h"

/// A rectangle that selects keys. The view draws it and carries it on: see ViewPort::viewMove.
class RubberBand : public CanvasGesture
{
public:
    using CanvasGesture::CanvasGesture;

    /// A button was pressed for it. The mode is one of the two that select by a rectangle.
    void begin(curve_editor::CanvasMode mode);
    /// Without begin, an application has set the mode: the view's rectangle is taken as it is.
    void end(curve_editor::CanvasMode mode) override;
    bool isOfMouse() const override;
    bool admits(curve_editor::CanvasMode mode) const override;

private:
    bool isHeld = false; ///< by a button
};
