#pragma once

#include "core/ZkTypes.h"
#include "zk_curve_editor_export.h"

namespace curve_editor {

/// An edit that can be taken back. From CurveCommandsManager::doCommand on the manager owns it.
///
/// A command may outlive what it speaks of: it remembers a curve by its record of the catalogue,
/// asks the canvas for the curve object by dotted name at each step, and keeps an expression as
/// text. It owns the points that it took out of a spline, as long as they are out.
class ZK_CURVE_EDITOR_EXPORT CurveCommand
{
public:
    CurveCommand() = default;
    CurveCommand(const CurveCommand&) = delete;
    CurveCommand& operator=(const CurveCommand&) = delete;
    virtual ~CurveCommand();

    /// Performs the edit for the first time. False: nothing worth undoing happened.
    virtual bool execute() = 0;
    virtual void undo() = 0;
    virtual void redo() = 0;
    /// The command's fixed English label.
    virtual ZK_String getDescription() = 0;
    /// Stores a description beside the label; getDescription doesn't return it.
    virtual void setDescription(const ZK_String& text);

private:
    ZK_String description;
};

} // namespace curve_editor
