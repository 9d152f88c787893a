#pragma once

#include "commands/CurveCommand.h"
#include "curves/CurveHold.h"

#include <QColor>
#include <QString>
#include <QStringList>

#include <memory>

class CurveEditor;
class FunctionFloatBase;
class SplineBase;

namespace curve_editor {

/// Adds a curve of the host to the editor. CurveEditor::addCurve runs it directly: it stands on no
/// stack, and may be destroyed right after execute.
class CommandAddCurve : public CurveCommand
{
public:
    CommandAddCurve(CurveEditor* editor, const QString& node, const QString& curve,
                    const QColor& color, float curveValue, SplineBase* spline,
                    FunctionFloatBase** function, float minValue, float maxValue,
                    const bool& selectByDefault, const bool& notifyHost);

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    void addToCatalogue();
    bool wantsSelection() const;
    SplineBase* livingSpline() const;
    FunctionFloatBase** livingSlot() const;

    CurveEditor* editor; ///< not owned
    QString nodeName;
    QString curveName;
    QColor color;
    float curveValue;
    SplineBase* spline; ///< the host's
    std::weak_ptr<const void> splineLife;
    FunctionFloatBase** function; ///< the host's
    float minValue;
    float maxValue;
    QStringList previousSelection;
    CurveHold curve; ///< the canvas's; for redo to put it back
    bool isNewRecord = true;
    bool notifyHost;
    bool selectByDefault;
};

} // namespace curve_editor
