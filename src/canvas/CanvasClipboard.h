#pragma once

#include <memory>

class CurveNode;
class CurveNodeBase;

namespace curve_editor {
class DetachedCurve;
} // namespace curve_editor

/// The keys of one curve that were copied last, as a curve of their own.
class CanvasClipboard
{
public:
    CanvasClipboard();
    ~CanvasClipboard();
    CanvasClipboard(const CanvasClipboard&) = delete;
    CanvasClipboard& operator=(const CanvasClipboard&) = delete;

    /// Copies all keys of a curve that has a spline.
    void copy(CurveNodeBase& source);
    /// Copies the selected ones; without any the former content stays.
    void copySelected(CurveNodeBase& source);

    /// Null until the first copy. Owned by the clipboard, until the next one.
    CurveNode* curve() const;
    /// By how many seconds the first key stands before a time; that time itself without a key.
    double offsetTo(double time) const;

private:
    std::unique_ptr<curve_editor::DetachedCurve> content; ///< null until the first copy
};
