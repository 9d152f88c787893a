#include "curves/CurveVisit.h"

#include "curves/CurveTree.h"

CurveVisit::CurveVisit(CurveTree* visited)
    : tree(visited)
{
    if (tree) {
        treeLife = tree->watchLife();
        tree->beginVisit();
    }
}

CurveVisit::~CurveVisit()
{
    if (!treeLife.expired()) {
        tree->endVisit();
    }
}
