#pragma once

#include <memory>

class CurveTree;

/// While a visit lasts, its tree frees no curve object. Whoever goes on with curve objects after
/// strangers' code may have run opens one: a slot or a refresh function of the host, a box or a
/// menu may take any curve off the canvas.
class CurveVisit
{
public:
    /// Null is passed over; the tree may end during the visit.
    explicit CurveVisit(CurveTree* tree);
    /// Of several visits at a time the last one to end frees what nobody names any more.
    ~CurveVisit();
    CurveVisit(const CurveVisit&) = delete;
    CurveVisit& operator=(const CurveVisit&) = delete;

private:
    CurveTree* tree;                    ///< not owned
    std::weak_ptr<const void> treeLife; ///< expires with the tree
};
