#pragma once

#include "HostCurve.h"

#include <QStringList>

#include <memory>
#include <vector>

/// The host's curves. They belong to the store and stay at their addresses until it goes, which
/// must be after the editor that they were lent to.
class CurveStore
{
public:
    /// A new curve, without keys or expression.
    HostCurve& add(const QString& node, const QString& name, const QColor& color, float minimum,
                   float maximum);

    /// Null if there is no such curve.
    HostCurve* find(const QString& dotName) const;

    /// The value at a time in seconds; 0 if there is no such curve.
    double value(const QString& dotName, double time, double fps) const;

    /// In the order in which they were added.
    QStringList dotNames() const;

    /// A curve name for a file that can stand under the node beside all others: the file's base
    /// name, with a number before it if need be.
    QString freeName(const QString& node, const QString& path) const;

private:
    bool isFree(const QString& dotName) const;

    std::vector<std::unique_ptr<HostCurve>> curves;
};
