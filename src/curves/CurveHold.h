#pragma once

#include <memory>

class CurveNode;

/// Keeps a curve object that leaves the canvas. The canvas frees what is unlinked once no hold
/// names it or anything below it; so a command that is to put an object back holds it.
///
///     const CurveHold kept(canvas.findCurve("body.width"));
///     canvas.removeCanvasCurve("body.width");
///     canvas.attachCanvasCurve(kept.get());
///
/// It may outlive the object, which ends with its canvas at the latest.
class CurveHold
{
public:
    CurveHold() = default;
    /// Null is held as null.
    explicit CurveHold(CurveNode* node);
    CurveHold(const CurveHold& other) = default;
    CurveHold(CurveHold&& other) noexcept = default;
    CurveHold& operator=(CurveHold other) noexcept;
    ~CurveHold();

    /// The object; null when there was none or it has been destroyed.
    CurveNode* get() const;

private:
    std::shared_ptr<CurveNode*> tag; ///< shared with the node, which empties it at its end
};
