#include "widgets/CustomToolbar.h"

CustomToolbar::CustomToolbar(QWidget* parent)
    : QToolBar(parent)
{}

CustomToolbar::~CustomToolbar() = default;
