#pragma once

#include "ui_SettingsSetter.h"
#include "zk_curve_editor_export.h"

#include <QDialog>

/// Asks for snap tolerances, the interpolation of new keys and further defaults.
///
///     CurveEditorSettings dialog(parent);
///     dialog.radiusH->setText("0.1");
///     if (dialog.exec() == QDialog::Accepted) {
///         const double radius = dialog.radiusH->text().toDouble();
///     }
///
/// It holds no logic: its user fills the widgets and reads them. Nothing is validated.
class ZK_CURVE_EDITOR_EXPORT CurveEditorSettings : public QDialog, public Ui::SettingsSetter
{
    Q_OBJECT

public:
    /// `parent` may be null; the truth value is not used.
    explicit CurveEditorSettings(QWidget* parent = nullptr, bool unused = false,
                                 Qt::WindowFlags flags = Qt::WindowFlags());
};
