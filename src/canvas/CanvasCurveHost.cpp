#include "canvas/CanvasCurveHost.h"

#include "canvas/CanvasFunctionBase.h"
#include "editor/CurveEditor.h"

namespace {

const int decimalsWithoutEditor = 2;

} // namespace

CanvasCurveHost::CanvasCurveHost(CanvasFunctionBase& shower)
    : canvas(shower)
{}

ViewPort* CanvasCurveHost::view() const
{
    return canvas.viewPort();
}

int CanvasCurveHost::labelDecimals() const
{
    const CurveEditor* const editor = canvas.curveEditor();
    return editor ? editor->getNumberOfDecimals() : decimalsWithoutEditor;
}

bool CanvasCurveHost::dependsOnItself(const QString& parserName, QString& offender) const
{
    CurveEditor* const editor = canvas.curveEditor();
    return editor && editor->checkDependencies(parserName, parserName, offender);
}

void CanvasCurveHost::createNodeAtCursor(CurveNode* curve)
{
    canvas.createNodeAtCursor(curve);
}
