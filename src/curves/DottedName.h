#pragma once

#include <QString>

namespace curve_editor {

/// The name of a curve in its two pieces: the main node, and the curve's own name, which may hold
/// further points. Joined by a point they are the one name under which catalogue, canvas and tree
/// know the curve.
///
///     DottedName("body", "arm.width").text() == "body.arm.width";
///     DottedName::fromText("body.arm.width").curve == "arm.width";
struct DottedName
{
    DottedName(const QString& nodeName, const QString& curveName)
        : node(nodeName)
        , curve(curveName)
    {}

    /// Parted at the first point. A text without one is a node without a curve.
    static DottedName fromText(const QString& text)
    {
        return {text.section(point, 0, 0), text.section(point, 1)};
    }

    QString text() const { return node + point + curve; }

    /// The text with blanks as underscores.
    QString safeText() const { return text().replace(QLatin1Char(' '), QLatin1Char('_')); }

    static constexpr QLatin1Char point{'.'};

    QString node;
    QString curve;
};

} // namespace curve_editor
