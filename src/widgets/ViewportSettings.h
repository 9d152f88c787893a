#pragma once

#include "ui_ViewportSettingsSetter.h"
#include "zk_curve_editor_export.h"

#include <QDialog>

/// Asks for the visible range: time in seconds and value.
///
///     ViewportSettings dialog(parent);
///     dialog.minX->setText("0");
///     if (dialog.exec() == QDialog::Accepted) {
///         const double firstSecond = dialog.minX->text().toDouble();
///     }
///
/// It holds no logic: its user fills the widgets and reads them. Nothing is validated.
class ZK_CURVE_EDITOR_EXPORT ViewportSettings : public QDialog, public Ui::ViewportSettingsSetter
{
    Q_OBJECT

public:
    /// `parent` may be null; the truth value is not used.
    explicit ViewportSettings(QWidget* parent = nullptr, bool unused = false,
                              Qt::WindowFlags flags = Qt::WindowFlags());
};
