#pragma once

#include <core/SplineBase.h>

#include <QColor>
#include <QString>

class FunctionFloatBase;

/// One animated value of the host: what it lends to the editor, and what it knows itself.
///
/// The editor keeps the addresses of `spline` and `expression`, so a curve neither moves nor is
/// copied, and it lives longer than the editor.
class HostCurve
{
public:
    HostCurve(const QString& nodeName, const QString& curveName, const QColor& curveColor,
              float lowest, float highest);
    ~HostCurve();
    HostCurve(const HostCurve&) = delete;
    HostCurve& operator=(const HostCurve&) = delete;

    /// The name by which the editor speaks of the curve: node, a point, curve.
    QString dotName() const;

    /// The value at a time in seconds, held to the limits. An expression sees "t", "f" and "fps".
    double valueAt(double time, double fps) const;

    const QString node;
    const QString name;
    const QColor color;
    const float minimum;
    const float maximum;

    SplineBase spline;
    /// The slot: null, or an expression that belongs to this curve. The editor writes here when
    /// the user types another one; it deletes the one that it replaces.
    FunctionFloatBase* expression = nullptr;
};
