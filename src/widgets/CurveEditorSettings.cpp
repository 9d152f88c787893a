#include "widgets/CurveEditorSettings.h"

#include <QLayout>

#include <algorithm>

namespace {

/// A font's letters made smaller and narrower, in parts of their own size and per cent of width.
struct Squeeze
{
    double size;
    int stretch;
};

constexpr Squeeze squeezes[] = {{1.0, 95}, {1.0, 90}, {1.0, 85}, {0.9, 90}, {0.9, 85},
                                {0.9, 80}, {0.8, 85}, {0.8, 80}, {0.7, 80}, {0.7, 75}};

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

/// What has no text, a line to type in or a filler, takes what is left.
bool showsItsText(const QWidget* widget)
{
    return widget->property("text").toString().isEmpty() ||
           widget->width() >= widget->sizeHint().width();
}

/// Tried in a form of its own, for a combo box keeps the least size that its first font gave it.
bool hasRoom(QWidget* parent, const QFont& font)
{
    QDialog form(parent);
    form.setFont(font);
    Ui::SettingsSetter parts;
    parts.setupUi(&form);
    form.layout()->activate();
    const QSize needed = form.layout()->totalMinimumSize();
    const QList<QWidget*> widgets = form.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    return needed.boundedTo(form.maximumSize()) == needed &&
           std::all_of(widgets.begin(), widgets.end(), showsItsText);
}

} // namespace

/// The sizes of the form are fixed, fonts are not: one that is too wide is squeezed until the
/// texts fit.
CurveEditorSettings::CurveEditorSettings(QWidget* parent, bool /*unused*/, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    const QFont plain = font();
    for (const Squeeze& squeeze : squeezes) {
        if (hasRoom(parent, font())) {
            break;
        }
        setFont(squeezed(plain, squeeze));
    }
    setupUi(this);
}
