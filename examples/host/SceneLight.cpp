#include "SceneLight.h"

#include <algorithm>

SceneLight::SceneLight(double sunHeight)
    : day(std::clamp((sunHeight + 28.0) / 72.0, 0.0, 1.0))
{}

QColor SceneLight::mix(const QColor& night, const QColor& dusk, const QColor& noon) const
{
    return day < 0.5 ? blend(night, dusk, day * 2.0) : blend(dusk, noon, day * 2.0 - 1.0);
}

double SceneLight::darkness() const
{
    return std::clamp(1.0 - day * 2.4, 0.0, 1.0);
}

QColor blend(const QColor& first, const QColor& second, double share)
{
    const auto part = static_cast<float>(std::clamp(share, 0.0, 1.0));
    const auto between = [part](float from, float to) { return from + (to - from) * part; };
    return QColor::fromRgbF(
        between(first.redF(), second.redF()), between(first.greenF(), second.greenF()),
        between(first.blueF(), second.blueF()), between(first.alphaF(), second.alphaF()));
}
