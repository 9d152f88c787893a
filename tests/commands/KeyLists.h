#pragma once

#include "core/SplineBase.h"

#include <QList>

/// The times of a spline's keys, in seconds.
inline QList<double> times(SplineBase& spline)
{
    QList<double> all;
    for (const PointInfo* point : spline.getControlPoints()) {
        all.append(point->time);
    }
    return all;
}

/// The values of a spline's keys.
inline QList<double> values(SplineBase& spline)
{
    QList<double> all;
    for (const PointInfo* point : spline.getControlPoints()) {
        all.append(point->value);
    }
    return all;
}
