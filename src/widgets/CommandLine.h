#pragma once

#include "zk_curve_editor_export.h"

#include <QLineEdit>

/// The line under the canvas that shows the expression of the editing curves. It is read-only.
class ZK_CURVE_EDITOR_EXPORT CommandLine : public QLineEdit
{
    Q_OBJECT

public:
    explicit CommandLine(QWidget* parent = nullptr);
};
