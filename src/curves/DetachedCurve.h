#pragma once

#include <memory>

class CurveNodeBase;
class FunctionFloatBase;
class SplineBase;

namespace curve_editor {

/// A curve that stands on no canvas, with a spline and an expression slot of its own, which are
/// freed with it: what the clipboard holds, and what a file is read into.
class DetachedCurve
{
public:
    /// A curve without keys and expression; all else is that of `model`.
    explicit DetachedCurve(const CurveNodeBase& model);
    ~DetachedCurve();
    DetachedCurve(const DetachedCurve&) = delete;
    DetachedCurve& operator=(const DetachedCurve&) = delete;

    /// Owned by the holder, and never null.
    CurveNodeBase* curve() const;
    /// Null once it was taken.
    SplineBase* spline() const;
    /// Gives the spline away. The curve still shows it, and ends with this holder.
    std::unique_ptr<SplineBase> takeSpline();

private:
    std::unique_ptr<SplineBase> keys;
    FunctionFloatBase* expression = nullptr; ///< owned
    std::unique_ptr<CurveNodeBase> node;
};

} // namespace curve_editor
