#include "canvas/GridLabels.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int usualDigits = 6;
constexpr int mostDigits = 17; // more do not tell two doubles apart

QStringList labelsOf(const int& count, const int& zeroIndex, const double& first,
                     const double& step, const int& digits)
{
    QStringList labels;
    for (int i = 0; i < count; ++i) {
        labels << (i == zeroIndex ? QStringLiteral("0")
                                  : QStringLiteral("%1").arg(i * step + first, 0, 'G', digits,
                                                             QLatin1Char(' ')));
    }
    return labels;
}

bool neighboursDiffer(const QStringList& labels)
{
    return std::adjacent_find(labels.cbegin(), labels.cend()) == labels.cend();
}

} // namespace

QStringList gridLabels(const int& count, const int& zeroIndex, const double& first,
                       const double& step)
{
    QStringList labels = labelsOf(count, zeroIndex, first, step, usualDigits);
    for (int digits = usualDigits + 1; digits <= mostDigits && !neighboursDiffer(labels);
         ++digits) {
        labels = labelsOf(count, zeroIndex, first, step, digits);
    }
    return labels;
}

LabelRow::LabelRow(QPainter* onto)
    : painter(onto)
{}

QRect LabelRow::boxOf(const QPoint& place, const QString& text) const
{
    const QFontMetrics metrics = painter->fontMetrics();
    return QRect(place.x(), place.y() - metrics.ascent(), metrics.horizontalAdvance(text),
                 metrics.height());
}

void LabelRow::draw(const QPoint& place, const QString& text)
{
    taken.push_back(boxOf(place, text));
    painter->drawText(place, text);
}

void LabelRow::drawIfFree(const QPoint& place, const QString& text)
{
    const QRect box = boxOf(place, text);
    if (std::none_of(taken.cbegin(), taken.cend(),
                     [&box](const QRect& other) { return other.intersects(box); })) {
        draw(place, text);
    }
}
