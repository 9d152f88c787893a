#pragma once

#include "ui_PanDialogBaseSetter.h"

#include <QDialog>

/// Asks how far the selected keys are to be moved: in value, and in time by seconds or frames.
class PanDialog : public QDialog, public Ui::PanDialogBaseSetter
{
    Q_OBJECT

public:
    explicit PanDialog(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());

    /// Takes the time in seconds, or else in frames; the number shown is converted. A number that
    /// a rate like 0 makes of it, and that isn't finite, is shown as 0.
    void setSeconds(const bool& value);

    bool isSeconds = true;
    double fps = 1.0; ///< frames per second

public slots:
    void toggleSeconds();

private:
    void showUnit();
};
