// What a host sets at run time: snapping, labels, new keys, icons, colours.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FrameGrid.h"
#include "canvas/FunctionEditor.h"
#include "editor/CurveEditorPrivate.h"
#include "graphs/CanvasColors.h"
#include "widgets/InterpolationPositions.h"

#include <QAction>

void CurveEditor::switchSnap()
{
    CanvasFunctionBase& canvas = d->canvas();
    const bool on = canvas.horizontalSnap != canvas.verticalSnap || !canvas.horizontalSnap;
    canvas.horizontalSnap = on;
    canvas.verticalSnap = on;
    d->actions.checkButton(snapToGridButton, on);
    refreshEditor();
}

void CurveEditor::switchSnapH()
{
    bool& on = d->canvas().horizontalSnap;
    on = !on;
    d->actions.buttonAction(horizontalSnapButton)->setChecked(on);
    refreshEditor();
}

void CurveEditor::switchSnapV()
{
    bool& on = d->canvas().verticalSnap;
    on = !on;
    d->actions.buttonAction(verticalSnapButton)->setChecked(on);
    refreshEditor();
}

/// The snap entry is checked for a moment as well; the refresh puts it right.
void CurveEditor::switchToolTips()
{
    bool& on = d->canvas().toolTipsOn;
    on = !on;
    d->functionEditor->showLabels = on;
    d->actions.buttonAction(horizontalSnapButton)->setChecked(on);
    refreshEditor();
}

void CurveEditor::setHSnapRadius(const double& radius)
{
    d->canvas().hSnapRadius = radius;
}

double CurveEditor::getHSnapRadius() const
{
    return d->canvas().hSnapRadius;
}

void CurveEditor::setVSnapRadius(const double& radius)
{
    d->canvas().vSnapRadius = radius;
}

double CurveEditor::getVSnapRadius() const
{
    return d->canvas().vSnapRadius;
}

void CurveEditor::setDefaultNodeType(const int& position)
{
    if (curve_editor::setInterpolationAt(position, d->canvas().defaultNodeType)) {
        refreshEditor();
    }
}

int CurveEditor::getDefaultNodeTypePos() const
{
    return curve_editor::positionOfInterpolation(d->canvas().defaultNodeType);
}

void CurveEditor::setTooltipsDrag(const bool& on)
{
    d->canvas().toolTipsWhileDragging = on;
}

bool CurveEditor::isTooltipsDrag() const
{
    return d->canvas().toolTipsWhileDragging;
}

void CurveEditor::setDefaultBrokenTangent(const bool& on)
{
    d->canvas().defaultBrokenTangent = on;
}

bool CurveEditor::isDefaultBrokenTangent() const
{
    return d->canvas().defaultBrokenTangent;
}

void CurveEditor::setDefaultAddFunc(const bool& on)
{
    d->canvas().defaultAddFunction = on;
}

bool CurveEditor::isDefaultAddFunc() const
{
    return d->canvas().defaultAddFunction;
}

void CurveEditor::setIconSize(const int& size)
{
    d->icons.size = size;
}

int CurveEditor::getIconSize() const
{
    return d->icons.size;
}

void CurveEditor::setIconsPath(const QString& path)
{
    d->icons.folder = path;
}

QString CurveEditor::getIconsPath() const
{
    return d->icons.folder;
}

void CurveEditor::setCanvasColor(const QColor& color)
{
    d->canvas().canvasColor = color;
}

void CurveEditor::setSelectionColor(const QColor& color)
{
    d->canvas().selectionColor = color;
}

void CurveEditor::setControllerColor(const QColor& color)
{
    CanvasColors::shared().controller = color;
}

void CurveEditor::setBrokenControllerColor(const QColor& color)
{
    CanvasColors::shared().brokenController = color;
}

void CurveEditor::setControllerSelectedColor(const QColor& color)
{
    CanvasColors::shared().controllerSelected = color;
}

void CurveEditor::setControlPointColor(const QColor& color)
{
    CanvasColors::shared().controlPoint = color;
}

void CurveEditor::setControlPointSelectedColor(const QColor& color)
{
    CanvasColors::shared().controlPointSelected = color;
}

void CurveEditor::setFrameFontColor(const QColor& color)
{
    d->canvas().frameGrid()->fontColor = color;
}

/// The whole pen is replaced by one of the colour alone, a hair line.
void CurveEditor::setFrameLinesColor(const QColor& color)
{
    QPen pen(color);
    pen.setWidth(0);
    d->canvas().frameGrid()->linePen = pen;
}

void CurveEditor::setFrameHLineColor(const QColor& color)
{
    d->canvas().frameGrid()->hLineColor = color;
}

void CurveEditor::setFrameVLineColor(const QColor& color)
{
    d->canvas().frameGrid()->vLineColor = color;
}

void CurveEditor::setTimeLineColor(const QColor& color)
{
    d->canvas().frameGrid()->timeLineColor = color;
}
