#pragma once

#include <QColor>

/// The colours of the hour, from night over dusk to day.
class SceneLight
{
public:
    /// `sunHeight` in percent of the sky's height above the horizon.
    explicit SceneLight(double sunHeight);

    /// The colour between the three, by the hour.
    QColor mix(const QColor& night, const QColor& dusk, const QColor& noon) const;

    /// 0 by day, 1 in deep night.
    double darkness() const;

private:
    double day; ///< 0 night, 0.5 dusk, 1 day
};

/// `first` at 0, `second` at 1; the share is held to that range.
QColor blend(const QColor& first, const QColor& second, double share);
