#include "editor/Look.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "editor/CurveEditor.h"
#include "graphs/CanvasColors.h"

#include <QPalette>

namespace curve_editor {

namespace {

constexpr int middleLightness = 128;

QColor translucent(QRgb rgb)
{
    QColor color(rgb);
    color.setAlpha(0x60);
    return color;
}

LookColors darkColors()
{
    LookColors colors;
    colors.canvas = QColor(0x15171c);
    colors.selection = translucent(0x4f7fd0);
    colors.gridLines = QColor(0x666d7a);
    colors.borders = QColor(0x8d95a5);
    colors.texts = QColor(0xaeb7c8);
    colors.timeLine = QColor(0xffd166);
    colors.keys = QColor(0xf2f2f2);
    colors.selectedKeys = QColor(0xff5a6a);
    colors.handles = QColor(0xffffdc);
    colors.brokenHandles = QColor(0x64ffdc);
    colors.grabbedHandles = QColor(0xff66e0);
    colors.overlay = QColor(0xffffff);
    return colors;
}

LookColors lightColors()
{
    LookColors colors;
    colors.canvas = QColor(0xfcfcfd);
    colors.selection = translucent(0x6f9fe8);
    colors.gridLines = QColor(0x8a8f99);
    colors.borders = QColor(0x6a707c);
    colors.texts = QColor(0x4a505c);
    colors.timeLine = QColor(0x9a5a00);
    colors.keys = QColor(0x22262e);
    colors.selectedKeys = QColor(0xd01030);
    colors.handles = QColor(0x7a6a00);
    colors.brokenHandles = QColor(0x007a66);
    colors.grabbedHandles = QColor(0xb0009a);
    colors.overlay = QColor(0x101216);
    return colors;
}

} // namespace

LookColors lookColors(const Look& look, const QPalette& palette)
{
    const bool isDark =
        look == Look::dark || (look == Look::fromPalette &&
                               palette.color(QPalette::Window).lightness() < middleLightness);
    return isDark ? darkColors() : lightColors();
}

void setLook(CurveEditor& editor, const Look& look)
{
    const LookColors colors = lookColors(look, editor.palette());
    editor.setCanvasColor(colors.canvas);
    editor.setSelectionColor(colors.selection);
    editor.setFrameLinesColor(colors.gridLines);
    editor.setFrameHLineColor(colors.borders);
    editor.setFrameVLineColor(colors.borders);
    editor.setFrameFontColor(colors.texts);
    editor.setTimeLineColor(colors.timeLine);
    editor.setControlPointColor(colors.keys);
    editor.setControlPointSelectedColor(colors.selectedKeys);
    editor.setControllerColor(colors.handles);
    editor.setBrokenControllerColor(colors.brokenHandles);
    editor.setControllerSelectedColor(colors.grabbedHandles);
    CanvasColors::shared().overlay = colors.overlay;
    editor.getFunctionEditor()->thinsKeys = true;
    editor.getFunctionEditor()->canvas().updateCanvas();
}

} // namespace curve_editor
