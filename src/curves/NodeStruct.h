#pragma once

#include "core/SplineHandle.h"

#include <QColor>
#include <QString>

#include "zk_curve_editor_export.h"

class FunctionFloatBase;
class SplineBase;

namespace curve_editor {

/// One curve that a host has offered for editing. Records live as long as their editor, also when
/// the curve was taken off its list, since commands keep pointers to them: whoever else keeps one
/// forgets it when the editor ends.
struct ZK_CURVE_EDITOR_EXPORT NodeStruct
{
    SplineBase* spline = nullptr;           ///< the host's; may be gone, see livingSpline
    FunctionFloatBase** function = nullptr; ///< the host's slot; *function is the expression
    QColor color;
    float curveValue = 0.0f; ///< stored and handed on, read by nothing
    float minValue = 0.0f;   ///< evaluated values are held above this
    float maxValue = 0.0f;   ///< and below this
    QString mainNodeName;
    QString curveName; ///< may hold points; each opens a level in the tree
    QString dotName;   ///< mainNodeName + "." + curveName: the key of the record
    /// dotName with blanks as underscores. Renaming the curve alone leaves it as it was.
    QString safeDotName;
    bool isEditing = false; ///< a curve object stands on the canvas
    bool notifyHost = true; ///< the curve object reports its changes

    /// The record of a curve that a host lends, by what it gives to CurveEditor::addCurve.
    static NodeStruct lent(const QString& node, const QString& curve, const QColor& color,
                           float curveValue, SplineBase* spline, FunctionFloatBase** function,
                           float minValue, float maxValue, bool notifyHost);

    /// Takes the spline and notes its life. One that was written into the field is noted when it
    /// is first asked for.
    void setSpline(SplineBase* hostSpline);

    /// The spline; null when there is none or its host has destroyed it.
    SplineBase* livingSpline() const;

    /// There was a spline and its host has destroyed it.
    bool isSplineLost() const;

    /// The slot; null when there is none. Once the host has destroyed the spline the slot is
    /// left alone as well: null.
    FunctionFloatBase** livingSlot() const;

    /// The expression in the living slot, or null.
    FunctionFloatBase* livingExpression() const;

private:
    void noteSpline() const;

    mutable const SplineBase* notedSpline = nullptr; ///< not owned; whose handle this is
    mutable SplineHandle splineHandle;
};

/// One object of the host, under which its curves stand. It lives as long as its editor.
struct ZK_CURVE_EDITOR_EXPORT MainNodeStruct
{
    QString name;
};

/// The form in which expressions name a curve: lower case, blanks as underscores.
ZK_CURVE_EDITOR_EXPORT QString parserForm(const QString& dotName);

} // namespace curve_editor
