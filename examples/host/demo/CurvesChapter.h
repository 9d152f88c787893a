#pragma once

#include "CurveState.h"

struct DemoTools;

/// Whole curves are reset, deleted, and taken out of the tree.
class CurvesChapter
{
public:
    explicit CurvesChapter(DemoTools& demoTools);

    bool run();

private:
    bool reset();
    bool deleteCurve();
    bool removeFromTree();
    bool undoAll();

    DemoTools& tools;
    const std::vector<CurveState> opened;
};
