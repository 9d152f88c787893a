#include "widgets/ControlMenu.h"

void ControlMenu::setupActions(ZK_BOOL /*existSelection*/, ZK_BOOL /*createKey*/) {}
