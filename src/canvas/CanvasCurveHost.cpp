#include "canvas/CanvasCurveHost.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasHost.h"

namespace {

const int decimalsWithoutEditor = 2;

} // namespace

CanvasCurveHost::CanvasCurveHost(CanvasFunctionBase& shower,
                                 const curve_editor::CanvasHost* canvasHost)
    : canvas(shower)
    , host(canvasHost)
{}

ViewPort* CanvasCurveHost::view() const
{
    return canvas.viewPort();
}

int CanvasCurveHost::labelDecimals() const
{
    return host ? host->numberOfDecimals() : decimalsWithoutEditor;
}

bool CanvasCurveHost::dependsOnItself(const QString& parserName, QString& offender) const
{
    return host && host->dependsOnItself(parserName, offender);
}

const ParserScope* CanvasCurveHost::parserScope() const
{
    return host ? host->parserScope() : nullptr;
}

void CanvasCurveHost::createNodeAtCursor(CurveNode* curve)
{
    canvas.createNodeAtCursor(curve);
}
