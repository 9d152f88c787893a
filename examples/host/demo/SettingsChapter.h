#pragma once

#include "CurveState.h"

#include <QString>
#include <QStringList>

struct DemoTools;

/// The dialogs that ask for numbers: visible range, pan, scale and the editor's settings.
class SettingsChapter
{
public:
    explicit SettingsChapter(DemoTools& demoTools);

    bool run();

private:
    bool setRange();
    bool pan();
    bool scale();
    bool undoAll();
    bool setOptions();

    QStringList rangeFields();
    bool changeKeys(const QString& step, const QString& entry, const QString& xField,
                    const QString& x, const QString& yField, const QString& y);

    DemoTools& tools;
    HostCurve& curve;              ///< the store's
    std::vector<PointInfo> before; ///< the keys before the last dialog
    const std::vector<CurveState> opened;
};
