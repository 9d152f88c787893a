#pragma once

#include "CurveState.h"

#include <QString>

class QWidget;
struct DemoTools;

/// The properties of a key are shown, typed and stepped through.
class KeyPropertiesChapter
{
public:
    explicit KeyPropertiesChapter(DemoTools& demoTools);

    bool run();

private:
    bool show();
    bool typeTension();
    bool stepThroughKeys();
    bool changeType();
    bool close();

    DemoTools& tools;
    HostCurve& curve;          ///< the store's
    QWidget* dialog = nullptr; ///< the editor's
    const std::vector<CurveState> opened;
};
