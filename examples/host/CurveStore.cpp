#include "CurveStore.h"

#include <QFileInfo>

#include <algorithm>

namespace {

/// How an expression writes the name of a curve.
QString parserForm(const QString& dotName)
{
    return dotName.toLower().replace(QLatin1Char(' '), QLatin1Char('_'));
}

/// A point in a curve's name would open a level in the tree, and other signs would keep
/// expressions from naming the curve.
QString plainName(const QString& path)
{
    QString name = QFileInfo(path).completeBaseName();
    for (QChar& letter : name) {
        if (!letter.isLetterOrNumber() && letter != QLatin1Char(' ')) {
            letter = QLatin1Char('_');
        }
    }
    return name.isEmpty() ? QStringLiteral("curve") : name;
}

} // namespace

HostCurve& CurveStore::add(const QString& node, const QString& name, const QColor& color,
                           float minimum, float maximum)
{
    curves.push_back(std::make_unique<HostCurve>(node, name, color, minimum, maximum));
    return *curves.back();
}

HostCurve* CurveStore::find(const QString& dotName) const
{
    const auto found = std::find_if(curves.begin(), curves.end(),
                                    [&](const auto& curve) { return curve->dotName() == dotName; });
    return found == curves.end() ? nullptr : found->get();
}

double CurveStore::value(const QString& dotName, double time, double fps) const
{
    const HostCurve* curve = find(dotName);
    return curve ? curve->valueAt(time, fps) : 0.0;
}

QStringList CurveStore::dotNames() const
{
    QStringList names;
    for (const auto& curve : curves) {
        names.append(curve->dotName());
    }
    return names;
}

QString CurveStore::freeName(const QString& node, const QString& path) const
{
    const QString plain = plainName(path);
    QString name = plain;
    for (int number = 2; !isFree(node + QLatin1Char('.') + name); ++number) {
        name = QStringLiteral("%1 ").arg(number) + plain;
    }
    return name;
}

/// The editor takes a name that begins with another curve's name, "wave2" beside "wave", for a
/// group of the tree: neither name may be the beginning of the other.
bool CurveStore::isFree(const QString& dotName) const
{
    const QString wanted = parserForm(dotName);
    return std::none_of(curves.begin(), curves.end(), [&](const auto& curve) {
        const QString taken = parserForm(curve->dotName());
        return wanted.startsWith(taken) || taken.startsWith(wanted);
    });
}
