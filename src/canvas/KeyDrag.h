#pragma once

#include "canvas/CanvasGesture.h"

class CurveNode;
class SplineCurveGraph;

/// The selected keys, or the handle that was pressed, follow the mouse. A step of the history tells
/// the way of the keys, and another one what else has changed of them.
class KeyDrag : public CanvasGesture
{
public:
    using CanvasGesture::CanvasGesture;

    /// A button was pressed for it. With `wholeKeys` their handles may move, too.
    void begin(bool wholeKeys);
    /// Without begin, an application has set the mode: commands for both steps are made here.
    void step(const QPointF& world) override;
    bool isOfMouse() const override;
    bool admits(curve_editor::CanvasMode mode) const override;

private:
    QPointF targetOf(const QPointF& world) const;
    void dragSelection(SplineCurveGraph& graph, bool many, const QPointF& raw,
                       const QPointF& target, const QPointF& way);

    bool isHeld = false; ///< by a button
};
