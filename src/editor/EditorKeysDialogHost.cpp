#include "editor/EditorKeysDialogHost.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/CommandContext.h"
#include "editor/CurveEditor.h"
#include "widgets/CurveKeysDialog.h"

namespace curve_editor {

EditorKeysDialogHost::EditorKeysDialogHost(CurveEditor* asked)
    : editor(asked)
{}

CommandContext& EditorKeysDialogHost::context() const
{
    return contextOf(editor);
}

CurveCommandsManager& EditorKeysDialogHost::manager() const
{
    return *editor->getCmdManager();
}

CurveTree* EditorKeysDialogHost::tree() const
{
    return &editor->getFunctionEditor()->canvas().tree();
}

QList<SplineCurveGraph*> EditorKeysDialogHost::keyContainers() const
{
    return editor->getFunctionEditor()->canvas().keyContainers();
}

double EditorKeysDialogHost::timeUnit() const
{
    return editor->isModeFrames() ? editor->getFps() : 1.0;
}

CustomEditLine* EditorKeysDialogHost::positionX() const
{
    return editor->positionX();
}

CustomEditLine* EditorKeysDialogHost::positionY() const
{
    return editor->positionY();
}

void EditorKeysDialogHost::endCanvasGesture()
{
    editor->getFunctionEditor()->canvas().endGesture();
}

void EditorKeysDialogHost::refreshKeysDialog()
{
    editor->getFunctionEditor()->refreshKeysDialog();
}

} // namespace curve_editor

/// By signature, as all fields of the dialog are.
CurveKeysDialog::CurveKeysDialog(CurveEditor* parent)
    : CurveKeysDialog(std::make_unique<curve_editor::EditorKeysDialogHost>(parent), parent)
{
    connect(nodeFirst, SIGNAL(activated(int)), parent, SLOT(changeNodeFirstType(int)));
    connect(nodeLast, SIGNAL(activated(int)), parent, SLOT(changeNodeLastType(int)));
    connect(this, SIGNAL(finished(int)), parent, SLOT(disableShowKeyPptiesBtn()));
}
