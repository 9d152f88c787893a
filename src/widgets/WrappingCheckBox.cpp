#include "widgets/WrappingCheckBox.h"

#include <QStyle>
#include <QStyleOptionButton>

namespace curve_editor {

QSize WrappingCheckBox::sizeHint() const
{
    ensurePolished();
    return sizeWith(wrapped(text()));
}

QSize WrappingCheckBox::minimumSizeHint() const
{
    return sizeHint();
}

void WrappingCheckBox::initStyleOption(QStyleOptionButton* option) const
{
    QCheckBox::initStyleOption(option);
    option->text = wrapped(option->text);
}

QSize WrappingCheckBox::sizeWith(const QString& label) const
{
    QStyleOptionButton option;
    QCheckBox::initStyleOption(&option);
    option.text = label;
    const QRect letters =
        style()->itemTextRect(fontMetrics(), QRect(), Qt::TextShowMnemonic, false, label);
    return style()->sizeFromContents(QStyle::CT_CheckBox, &option, letters.size(), this);
}

/// Broken at the blank that makes the longer of the two lines shortest.
QString WrappingCheckBox::wrapped(const QString& label) const
{
    QString best = label;
    int width = sizeWith(label).width();
    if (width <= maximumWidth()) {
        return label;
    }
    for (qsizetype blank = label.indexOf(u' '); blank >= 0;
         blank = label.indexOf(u' ', blank + 1)) {
        QString lines = label;
        lines[blank] = u'\n';
        const int linesWidth = sizeWith(lines).width();
        if (linesWidth < width) {
            width = linesWidth;
            best = lines;
        }
    }
    return best;
}

} // namespace curve_editor
