#include "editor/CurveEditorSettings.h"

namespace {

/// A font's letters made smaller and narrower, in parts of their own size and per cent of width.
struct Squeeze
{
    double size;
    int stretch;
};

constexpr Squeeze squeezes[] = {{1.0, 87}, {1.0, 75}, {0.9, 75}, {0.8, 75}, {0.7, 75}};

QFont squeezed(const QFont& font, const Squeeze& squeeze)
{
    QFont result = font;
    result.setStretch(squeeze.stretch);
    if (font.pointSizeF() > 0.0) {
        result.setPointSizeF(font.pointSizeF() * squeeze.size);
    } else {
        result.setPixelSize(qRound(font.pixelSize() * squeeze.size));
    }
    return result;
}

bool hasRoom(const QDialog& dialog)
{
    for (const QWidget* const widget : dialog.findChildren<QWidget*>()) {
        if (!qobject_cast<const QLineEdit*>(widget) &&
            widget->sizeHint().width() > widget->maximumWidth()) {
            return false;
        }
    }
    return true;
}

} // namespace

/// The sizes of the form are fixed, fonts are not: one that is too wide is squeezed until the
/// texts fit.
CurveEditorSettings::CurveEditorSettings(QWidget* parent, bool /*unused*/, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setupUi(this);
    const QFont plain = font();
    for (const Squeeze& squeeze : squeezes) {
        if (hasRoom(*this)) {
            return;
        }
        setFont(squeezed(plain, squeeze));
    }
}
