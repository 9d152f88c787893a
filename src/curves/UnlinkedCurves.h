#pragma once

#include <QSet>

class CurveNode;
class EditingSet;

/// The curve objects that have left their tree, until nobody names them any more. One is named by
/// a CurveHold, by the curves being edited, and by whatever stands on the stack during a
/// CurveVisit. The moment of its end depends on these alone: no event loop, no timer.
///
/// Of several that left together the root counts: it lives while anything below it is named.
class UnlinkedCurves
{
public:
    /// The curves being edited may name some that have left with their group.
    explicit UnlinkedCurves(const EditingSet& editing);
    UnlinkedCurves(const UnlinkedCurves&) = delete;
    UnlinkedCurves& operator=(const UnlinkedCurves&) = delete;

    /// Owns a root that was unlinked. Its pixels go at once.
    void take(CurveNode* root);
    /// Owns the node no longer: it is linked again, or at its end.
    void giveBack(CurveNode* node);
    /// Something has ceased to name a node, which may be any.
    void nameDropped(CurveNode* node);

    /// Nothing is freed between the first begin and the last end.
    void beginVisit();
    void endVisit();

private:
    void freeUnnamed();
    bool isNamed(CurveNode* node) const;

    const EditingSet& editing; ///< not owned
    QSet<CurveNode*> roots;    ///< owned
    QSet<CurveNode*> doubted;  ///< those of the roots that may be named no longer
    int visits = 0;
};
