#include "widgets/ViewportSettings.h"

ViewportSettings::ViewportSettings(QWidget* parent, bool /*unused*/, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setupUi(this);
}
