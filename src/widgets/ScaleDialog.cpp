#include "widgets/ScaleDialog.h"

ScaleDialog::ScaleDialog(QWidget* parent, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setupUi(this);
}
