#pragma once

#include "commands/CurveCommand.h"
#include "core/KeyRef.h"

#include <QList>

class CurveEditor;

namespace curve_editor {

class CommandContext;
struct NodeStruct;

/// Deletes the selected keys of the curves being edited. Whatever the selection is later, it is
/// these keys that redo takes out again.
class CommandDelPoints : public CurveCommand
{
public:
    /// Takes the curves of the moment; the keys are chosen at execute.
    explicit CommandDelPoints(CurveEditor* editor);
    explicit CommandDelPoints(CommandContext& context);
    ~CommandDelPoints() override;

    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    void takeOut(const qsizetype& node);
    void dropDeleted();
    void putBack(const qsizetype& node);

    CommandContext* context;  ///< not owned
    QList<NodeStruct*> nodes; ///< not owned: the catalogue's
    /// One list a node. Owned while pointsInSpline is false, else their splines'. Keys that the
    /// command lost to somebody else, or that went with a destroyed spline, leave the list.
    QList<QList<KeyRef>> deleted;
    bool pointsInSpline = true;
};

} // namespace curve_editor
