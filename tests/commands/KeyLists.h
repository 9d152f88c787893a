#pragma once

#include "core/SplineBase.h"

#include <QList>

/// The times of a spline's keys, in seconds.
inline QList<double> keyTimes(SplineBase& spline)
{
    QList<double> all;
    for (const PointInfo* point : spline.getControlPoints()) {
        all.append(point->time);
    }
    return all;
}

/// The values of a spline's keys.
inline QList<double> keyValues(SplineBase& spline)
{
    QList<double> all;
    for (const PointInfo* point : spline.getControlPoints()) {
        all.append(point->value);
    }
    return all;
}
