#pragma once

#include "CurveState.h"

struct DemoTools;

/// Keys of the boat are copied and pasted onto the sail in all six ways.
class ClipboardChapter
{
public:
    explicit ClipboardChapter(DemoTools& demoTools);

    bool run();

private:
    /// A way to paste: the last part of its entry, and what becomes of the keys.
    struct Way
    {
        const char* entry;
        double offset;  ///< seconds that the keys are moved by
        bool keepsKeys; ///< those of the target stay
    };

    bool copyKeys();
    bool paste(const Way& way);
    bool copyCurve();
    bool undoAll();

    DemoTools& tools;
    HostCurve& source; ///< the store's
    HostCurve& target; ///< the store's
    std::vector<PointInfo> copied;
    const std::vector<CurveState> opened;
};
