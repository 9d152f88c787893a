#include "editor/EditorCommandContext.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "editor/CurveEditor.h"
#include "editor/CurveEditorPrivate.h"
#include "widgets/CommandLine.h"

#include <QPointer>

namespace curve_editor {

EditorCommandContext::EditorCommandContext(CurveEditor& dialog, const Catalogue& catalogue)
    : editor(dialog)
    , records(catalogue)
{}

const Catalogue& EditorCommandContext::catalogue() const
{
    return records;
}

const CurveTree& EditorCommandContext::tree() const
{
    return editor.getFunctionEditor()->canvas().tree();
}

const EditingSet& EditorCommandContext::editingSet() const
{
    return editor.getFunctionEditor()->canvas().editingSet();
}

KeyDefaults EditorCommandContext::keyDefaults() const
{
    const CanvasFunctionBase& canvas = editor.getFunctionEditor()->canvas();
    return {static_cast<zk_spline::interpolationType>(canvas.defaultNodeType),
            !canvas.defaultBrokenTangent};
}

QStringList EditorCommandContext::selection() const
{
    return editor.getSelection();
}

void EditorCommandContext::listCurve(const NodeStruct& content)
{
    editor.addNewMainNode(content.mainNodeName);
    editor.addNewNode(content.mainNodeName, content.curveName, content.color, content.curveValue,
                      content.livingSpline(), content.livingSlot(), content.minValue,
                      content.maxValue, content.notifyHost);
}

void EditorCommandContext::unlistCurve(const QString& node, const QString& curve)
{
    editor.removeCurve(node, curve);
}

void EditorCommandContext::enterCanvas(NodeStruct* record, CurveNode* object)
{
    editor.setCurveEditableOn(record, object);
}

void EditorCommandContext::enterSelected(const QString& node, const QString& curve)
{
    editor.setDefaultSelected(node, curve);
}

void EditorCommandContext::enterSelected(const QString& node, const QString& curve,
                                         CurveNode* object)
{
    editor.setDefaultSelected(node, curve, object);
}

void EditorCommandContext::leaveCanvas(const QString& dotName)
{
    editor.removeCurveFromEditing(dotName);
}

void EditorCommandContext::setColor(NodeStruct* record, const QColor& color)
{
    editor.setColorToEditingNode(record, color);
}

void EditorCommandContext::select(const QStringList& dotNames)
{
    editor.selectNodes(dotNames);
}

void EditorCommandContext::reportOne(const QString& node, const QString& curve)
{
    QString nodeName = node; // which a slot may write to
    QString curveName = curve;
    editor.emitSignalCurveHasChanged(nodeName, curveName);
}

void EditorCommandContext::report(const QStringList& dotNames)
{
    editor.emitSignalCurvesHaveChanged(dotNames);
}

bool EditorCommandContext::blockReports(const bool& block)
{
    return editor.blockSignals(block);
}

void EditorCommandContext::refresh()
{
    editor.refreshEditor();
}

void EditorCommandContext::refreshExpressionLine()
{
    editor.refreshCommandLine();
}

void EditorCommandContext::refreshKeysDialog()
{
    editor.getFunctionEditor()->refreshKeysDialog();
}

void EditorCommandContext::repaint()
{
    editor.update();
}

bool EditorCommandContext::tell(const Problems& problems)
{
    const QPointer<CurveEditor> living(&editor);
    for (const Problem& problem : problems) {
        showBox(problem);
        if (!living) {
            return false;
        }
    }
    return true;
}

QString EditorCommandContext::textOf(const CommandLine* line) const
{
    return line->text();
}

void EditorCommandContext::showParsed(CommandLine* line, const ParseMessage& message)
{
    line->setParseMessage(message);
}

CommandContext& contextOf(CurveEditor* editor)
{
    return CurveEditorPrivate::of(*editor).commandContext;
}

} // namespace curve_editor
