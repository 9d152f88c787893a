#include "editor/EditorCanvasHost.h"

#include "curves/DottedName.h"
#include "editor/CurveEditor.h"
#include "editor/CurveEditorPrivate.h"

namespace curve_editor {

EditorCanvasHost::EditorCanvasHost(CurveEditor& curveEditor)
    : editor(curveEditor)
{}

CurveCommandsManager& EditorCanvasHost::manager() const
{
    return *editor.getCmdManager();
}

ModeControl& EditorCanvasHost::modes() const
{
    return CurveEditorPrivate::of(editor).modes;
}

NodeStruct* EditorCanvasHost::findRecord(const QString& dotName) const
{
    return editor.searchAllNodeList(dotName);
}

bool EditorCanvasHost::dependsOnItself(const QString& parserName, QString& offender) const
{
    return editor.checkDependencies(parserName, parserName, offender);
}

const ParserScope* EditorCanvasHost::parserScope() const
{
    return editor.parserScope();
}

int EditorCanvasHost::numberOfDecimals() const
{
    return editor.getNumberOfDecimals();
}

void EditorCanvasHost::reportCurve(const QString& dotName)
{
    DottedName name = DottedName::fromText(dotName);
    editor.emitSignalCurveHasChanged(name.node, name.curve);
}

void EditorCanvasHost::reportEditingCurves()
{
    editor.emitSignalCurvesHaveChanged();
}

void EditorCanvasHost::refresh()
{
    editor.refreshEditor();
}

QMenu* EditorCanvasHost::keysMenu() const
{
    return editor.keysMenu();
}

void EditorCanvasHost::undo()
{
    editor.undo();
}

void EditorCanvasHost::redo()
{
    editor.redo();
}

std::unique_ptr<CanvasHost> canvasHostOf(CurveEditor* editor)
{
    return editor ? std::make_unique<EditorCanvasHost>(*editor) : nullptr;
}

} // namespace curve_editor
