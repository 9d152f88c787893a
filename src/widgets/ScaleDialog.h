#pragma once

#include "ui_ScaleDialogBaseSetter.h"

#include <QDialog>

/// Asks for the factors of time and value by which the selected keys are scaled.
class ScaleDialog : public QDialog, public Ui::ScaleDialogBaseSetter
{
    Q_OBJECT

public:
    explicit ScaleDialog(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
};
