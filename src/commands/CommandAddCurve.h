#pragma once

#include "commands/CurveCommand.h"
#include "curves/CurveHold.h"
#include "curves/NodeStruct.h"

#include <QStringList>

class CurveEditor;

namespace curve_editor {

class CommandContext;

/// Adds a curve of the host to the editor. CurveEditor::addCurve runs it directly: it stands on no
/// stack, and may be destroyed right after execute.
class CommandAddCurve : public CurveCommand
{
public:
    CommandAddCurve(CurveEditor* editor, const QString& node, const QString& curve,
                    const QColor& color, float curveValue, SplineBase* spline,
                    FunctionFloatBase** function, float minValue, float maxValue,
                    const bool& selectByDefault, const bool& notifyHost);
    /// `content` is what the host gives, with the names of the curve.
    CommandAddCurve(CommandContext& context, const NodeStruct& content,
                    const bool& selectByDefault);

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    bool wantsSelection() const;

    CommandContext* context; ///< not owned
    NodeStruct content;      ///< spline and slot are the host's
    QStringList previousSelection;
    CurveHold curve; ///< the canvas's; for redo to put it back
    bool isNewRecord = true;
    bool selectByDefault;
};

} // namespace curve_editor
