#include "canvas/CanvasVisit.h"

#include "canvas/CanvasFunctionBase.h"

CanvasVisit::CanvasVisit(CanvasFunctionBase* visited)
    : canvas(visited)
{
    if (canvas) {
        canvas->unlinked.beginVisit();
    }
}

CanvasVisit::~CanvasVisit()
{
    if (canvas) {
        canvas->unlinked.endVisit();
    }
}
