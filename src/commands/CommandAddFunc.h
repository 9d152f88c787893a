#pragma once

#include "commands/CurveCommand.h"

#include <QList>

class CurveEditor;

namespace curve_editor {

class CommandContext;
struct NodeStruct;

/// Adds the splines of the curves being edited to their expressions, or takes them out again when
/// the first curve has its own added already.
class CommandAddFunc : public CurveCommand
{
public:
    explicit CommandAddFunc(CurveEditor* editor);
    explicit CommandAddFunc(CommandContext& context);

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    struct Curve
    {
        NodeStruct* node; ///< not owned: the catalogue's
        bool oldAddFunc;
    };

    void report();

    CommandContext* context; ///< not owned
    QList<Curve> curves;
    bool newAddFunc;
};

} // namespace curve_editor
