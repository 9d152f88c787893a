#pragma once

#include <memory>

class CurveNode;

/// Keeps a curve object that leaves its tree. The tree frees what is unlinked once no hold
/// names it or anything below it; so a command that is to put an object back holds it.
///
///     const CurveHold kept(tree.findCurve("body.width"));
///     tree.remove("body.width");
///     tree.attach(kept.get());
///
/// It may outlive the object, which ends with its tree at the latest.
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
