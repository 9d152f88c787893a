#pragma once

#include "core/SplineBase.h"

#include <QFrame>

/// A small picture of a key's shape: a spline of three keys, at times 0, 0.5 and 1 with values 0,
/// 1 and 0, whose last key takes on the data of the key shown.
class TcbCurve : public QFrame
{
    Q_OBJECT

public:
    explicit TcbCurve(QWidget* parent = nullptr);

    /// The last key takes on the tangents, parameters and interpolation of `key`.
    void showKey(const PointInfo& key);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SplineBase previewSpline;
};
