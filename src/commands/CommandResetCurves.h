#pragma once

#include "commands/CurveCommand.h"

#include <QList>

#include <memory>
#include <vector>

class CurveEditor;
class SplineBase;

namespace curve_editor {

class CommandContext;
class CommandSelectPoints;
struct NodeStruct;

/// Empties the splines of curves, and deletes the expressions of those on the canvas. Undo brings
/// the keys back, but no expression.
class CommandResetCurves : public CurveCommand
{
public:
    /// Null records are passed over.
    CommandResetCurves(CurveEditor* editor, const QList<NodeStruct*>& nodes);
    CommandResetCurves(CommandContext& context, const QList<NodeStruct*>& nodes);
    ~CommandResetCurves() override;

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    /// What a spline held: the same keys, not copies of them. Two records may share the spline.
    struct SavedSpline
    {
        NodeStruct* node = nullptr; ///< not owned: the catalogue's
        /// The spline's keys while they are not in place; else what undo found in their place.
        std::unique_ptr<SplineBase> content;
        /// What undo found, while redo empties the spline; else null.
        std::unique_ptr<SplineBase> found;
        bool contentInPlace = true;
    };

    void takeContents(const bool& isRedo);
    void putBackFound();

    CommandContext* context;  ///< not owned
    QList<NodeStruct*> nodes; ///< not owned: the catalogue's; none of them null
    std::vector<SavedSpline> saved;
    std::unique_ptr<CommandSelectPoints> selectCommand; ///< null until the first execute
};

} // namespace curve_editor
