#pragma once

#include "editor/CurveEditor.h"

#include <QObject>
#include <QStringList>

#include <utility>

/// Notes what the editor reports to its host, as "node|curve".
class HostEar : public QObject
{
public:
    explicit HostEar(CurveEditor& editor)
    {
        connect(&editor, &CurveEditor::curveHasChanged, this,
                [this](QString& node, QString& curve) {
                    reports.append(node + QLatin1Char('|') + curve);
                });
    }

    /// What was reported since the last call.
    QStringList take() { return std::exchange(reports, {}); }

    QStringList reports;
};
