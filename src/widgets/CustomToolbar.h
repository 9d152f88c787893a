#pragma once

#include "zk_curve_editor_export.h"

#include <QToolBar>

/// A plain toolbar. The type of its own tells the frame's two fixed bars from the movable ones.
class ZK_CURVE_EDITOR_EXPORT CustomToolbar : public QToolBar
{
    Q_OBJECT

public:
    explicit CustomToolbar(QWidget* parent);
    ~CustomToolbar() override;
};
