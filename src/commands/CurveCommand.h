#pragma once

#include "core/ZkTypes.h"
#include "editor/zk_curve_editor_export.h"

namespace curve_editor {

/// An edit that can be taken back. Ownership passes to the manager at doCommand.
class ZK_CURVE_EDITOR_EXPORT CurveCommand
{
public:
    CurveCommand();
    virtual ~CurveCommand();

    /// Performs the edit for the first time; false when nothing worth undoing happened.
    virtual bool execute() = 0;
    virtual void undo() = 0;
    virtual void redo() = 0;
    /// The command's fixed English label.
    virtual ZK_String getDescription() = 0;
    virtual void setDescription(const ZK_String& text);

private:
    ZK_String description;
};

} // namespace curve_editor
