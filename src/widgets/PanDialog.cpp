#include "widgets/PanDialog.h"

#include <QCoreApplication>

#include <cmath>

PanDialog::PanDialog(QWidget* parent, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setupUi(this);
    showUnit();
    connect(toggleButton_, SIGNAL(clicked()), this, SLOT(toggleSeconds()));
}

void PanDialog::setSeconds(const bool& value)
{
    if (value != isSeconds) {
        const double offset = value ? panX->value() / fps : panX->value() * fps;
        // The field would show its upper end for what is no number.
        panX->setValue(std::isfinite(offset) ? offset : 0.0);
    }
    isSeconds = value;
    showUnit();
}

void PanDialog::toggleSeconds()
{
    setSeconds(!isSeconds);
}

void PanDialog::showUnit()
{
    xLabel_->setText(isSeconds ? QCoreApplication::translate("PanDialogBaseSetter", "seconds")
                               : QCoreApplication::translate("PanDialogBaseSetter", "frames"));
}
