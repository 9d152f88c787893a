#pragma once

#include <core/PointInfo.h>

#include <QString>

#include <vector>

class HostCurve;
struct DemoTools;

/// Keys and handles are dragged on the canvas, and taken back.
class KeysChapter
{
public:
    explicit KeysChapter(DemoTools& demoTools);

    bool run();

private:
    bool openCurves();
    bool selectCurve();
    bool dragKey();
    bool dragHandle();
    bool undoAll();
    bool redoAll();
    bool moveTime();

    DemoTools& tools;
    HostCurve& curve;              ///< the store's; the curve that is edited
    std::vector<PointInfo> opened; ///< the keys as they were read
    std::vector<PointInfo> edited; ///< the keys after the drags
    int undone = 0;                ///< commands
};
