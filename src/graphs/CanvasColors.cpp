#include "graphs/CanvasColors.h"

CanvasColors& CanvasColors::shared()
{
    static CanvasColors colors;
    return colors;
}
