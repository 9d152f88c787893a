#pragma once

#include "zk_curve_editor_export.h"

#include <QColor>

class CurveEditor;
class QPalette;

namespace curve_editor {

/// How an editor's canvas looks.
enum class Look
{
    light,
    dark,
    fromPalette ///< the one of the two that goes with the editor's palette
};

/// The colours of a look. Each stands out from the canvas: lines and keys by a contrast of at
/// least 3, texts by 4.5.
struct LookColors
{
    QColor canvas;
    QColor selection; ///< translucent: what lies beneath shows
    QColor gridLines;
    QColor borders;
    QColor texts;
    QColor timeLine;
    QColor keys;
    QColor selectedKeys;
    QColor handles;
    QColor brokenHandles;
    QColor grabbedHandles;
    QColor overlay; ///< labels at keys, rubber band and cross-hair
};

/// The colours of a look; a palette tells by its window which one goes with it.
ZK_CURVE_EDITOR_EXPORT LookColors lookColors(const Look& look, const QPalette& palette);

/// Gives an editor a look at once, and has keys whose squares would overlap drawn as points in the
/// colour of their curve:
///
///     curve_editor::setLook(*editor, curve_editor::Look::fromPalette);
///
/// An editor without a look keeps the colours that it was made with. Colours of keys, handles and
/// labels are those of all editors of the process. A later change of the palette changes nothing.
ZK_CURVE_EDITOR_EXPORT void setLook(CurveEditor& editor, const Look& look);

} // namespace curve_editor
