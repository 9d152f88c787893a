#pragma once

#include "commands/CurveCommand.h"

#include <QList>

class CurveEditor;
class FunctionEditor;

namespace curve_editor {

struct NodeStruct;

/// Adds the splines of the curves being edited to their expressions, or takes them out again when
/// the first curve has its own added already.
class CommandAddFunc : public CurveCommand
{
public:
    explicit CommandAddFunc(CurveEditor* editor);

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

    CurveEditor* editor;            ///< not owned
    FunctionEditor* functionEditor; ///< not owned
    QList<Curve> curves;
    bool newAddFunc;
};

} // namespace curve_editor
