// What a host sets at run time: snapping, labels, new keys, icons, colours.

#include "editor/CurveEditor.h"

#include "canvas/FrameGrid.h"
#include "canvas/FunctionEditor.h"
#include "graphs/CanvasColors.h"
#include "widgets/NodeTypePositions.h"

#include <QAction>

void CurveEditor::switchSnap()
{
    CanvasFunctionBase& canvas = functionEditor->canvas();
    const bool on = canvas.horizontalSnap != canvas.verticalSnap || !canvas.horizontalSnap;
    canvas.horizontalSnap = on;
    canvas.verticalSnap = on;
    checkButton(snapToGridButton, on);
    refreshEditor();
}

void CurveEditor::switchSnapH()
{
    bool& on = functionEditor->canvas().horizontalSnap;
    on = !on;
    toolButtonActions[horizontalSnapButton]->setChecked(on);
    refreshEditor();
}

void CurveEditor::switchSnapV()
{
    bool& on = functionEditor->canvas().verticalSnap;
    on = !on;
    toolButtonActions[verticalSnapButton]->setChecked(on);
    refreshEditor();
}

/// The snap entry is checked for a moment as well; the refresh puts it right.
void CurveEditor::switchToolTips()
{
    bool& on = functionEditor->canvas().toolTipsOn;
    on = !on;
    functionEditor->showLabels = on;
    toolButtonActions[horizontalSnapButton]->setChecked(on);
    refreshEditor();
}

void CurveEditor::setHSnapRadius(const double& radius)
{
    functionEditor->canvas().hSnapRadius = radius;
}

double CurveEditor::getHSnapRadius() const
{
    return functionEditor->canvas().hSnapRadius;
}

void CurveEditor::setVSnapRadius(const double& radius)
{
    functionEditor->canvas().vSnapRadius = radius;
}

double CurveEditor::getVSnapRadius() const
{
    return functionEditor->canvas().vSnapRadius;
}

void CurveEditor::setDefaultNodeType(const int& position)
{
    if (storeDefaultNodeType(position)) {
        refreshEditor();
    }
}

bool CurveEditor::storeDefaultNodeType(const int& position)
{
    if (!curve_editor::isNodeTypePosition(position)) {
        return false;
    }
    functionEditor->canvas().defaultNodeType =
        curve_editor::nodeTypeOfPosition[static_cast<std::size_t>(position)];
    return true;
}

int CurveEditor::getDefaultNodeTypePos() const
{
    return curve_editor::positionOfNodeType(functionEditor->canvas().defaultNodeType);
}

void CurveEditor::setTooltipsDrag(const bool& on)
{
    functionEditor->canvas().toolTipsWhileDragging = on;
}

bool CurveEditor::isTooltipsDrag() const
{
    return functionEditor->canvas().toolTipsWhileDragging;
}

void CurveEditor::setDefaultBrokenTangent(const bool& on)
{
    functionEditor->canvas().defaultBrokenTangent = on;
}

bool CurveEditor::isDefaultBrokenTangent() const
{
    return functionEditor->canvas().defaultBrokenTangent;
}

void CurveEditor::setDefaultAddFunc(const bool& on)
{
    functionEditor->canvas().defaultAddFunction = on;
}

bool CurveEditor::isDefaultAddFunc() const
{
    return functionEditor->canvas().defaultAddFunction;
}

void CurveEditor::setIconSize(const int& size)
{
    iconSize = size;
}

int CurveEditor::getIconSize() const
{
    return iconSize;
}

void CurveEditor::setIconsPath(const QString& path)
{
    iconsPath = path;
}

QString CurveEditor::getIconsPath() const
{
    return iconsPath;
}

void CurveEditor::setCanvasColor(const QColor& color)
{
    functionEditor->canvas().canvasColor = color;
}

void CurveEditor::setSelectionColor(const QColor& color)
{
    functionEditor->canvas().selectionColor = color;
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
    functionEditor->canvas().frameGrid()->fontColor = color;
}

/// The whole pen is replaced by one of the colour alone, a hair line.
void CurveEditor::setFrameLinesColor(const QColor& color)
{
    QPen pen(color);
    pen.setWidth(0);
    functionEditor->canvas().frameGrid()->linePen = pen;
}

void CurveEditor::setFrameHLineColor(const QColor& color)
{
    functionEditor->canvas().frameGrid()->hLineColor = color;
}

void CurveEditor::setFrameVLineColor(const QColor& color)
{
    functionEditor->canvas().frameGrid()->vLineColor = color;
}

void CurveEditor::setTimeLineColor(const QColor& color)
{
    functionEditor->canvas().frameGrid()->timeLineColor = color;
}
