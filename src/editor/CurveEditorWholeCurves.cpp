// The clipboard, and taking the content of whole curves away.

#include "editor/CurveEditor.h"

#include "canvas/FunctionEditor.h"
#include "commands/CommandDelCurves.h"
#include "curves/DottedName.h"
#include "widgets/CurveKeysDialog.h"

#include <QPointer>

using curve_editor::CommandDelCurves;
using curve_editor::DottedName;

namespace {

/// The box of an expression that has become wrong lets the host delete the editor.
void pasteAndRepaint(CurveEditor* editor, void (CanvasFunctionBase::*paste)())
{
    const QPointer<CurveEditor> living(editor);
    CanvasFunctionBase& canvas = editor->getFunctionEditor()->canvas();
    (canvas.*paste)();
    if (living) {
        canvas.updateCanvas();
    }
}

} // namespace

void CurveEditor::copy()
{
    functionEditor->canvas().copy();
}

void CurveEditor::copyKeys()
{
    functionEditor->canvas().copyKeys();
}

void CurveEditor::paste()
{
    pasteAndRepaint(this, &CanvasFunctionBase::paste);
}

void CurveEditor::pasteOffset()
{
    pasteAndRepaint(this, &CanvasFunctionBase::pasteOffset);
}

void CurveEditor::pasteOnTimeline()
{
    pasteAndRepaint(this, &CanvasFunctionBase::pasteOnTimeline);
}

void CurveEditor::pasteKeys()
{
    pasteAndRepaint(this, &CanvasFunctionBase::pasteKeys);
}

void CurveEditor::pasteKeysOffset()
{
    pasteAndRepaint(this, &CanvasFunctionBase::pasteKeysOffset);
}

void CurveEditor::pasteKeysOnTimeline()
{
    pasteAndRepaint(this, &CanvasFunctionBase::pasteKeysOnTimeline);
}

void CurveEditor::copyBtn()
{
    setDefaultButton(toolButtonActions[copyCurveButton], copyButton);
    copy();
}

void CurveEditor::copyKeysBtn()
{
    setDefaultButton(toolButtonActions[copySelectedKeysButton], copyButton);
    copyKeys();
}

void CurveEditor::pasteBtn()
{
    setDefaultButton(toolButtonActions[pasteAndReplaceButton], pasteButton);
    paste();
}

void CurveEditor::pasteOffsetBtn()
{
    setDefaultButton(toolButtonActions[pasteAndReplaceAfterTimelineButton], pasteButton);
    pasteOffset();
}

void CurveEditor::pasteOnTimelineBtn()
{
    setDefaultButton(toolButtonActions[pasteAndReplaceOnCurrentFrameButton], pasteButton);
    pasteOnTimeline();
}

void CurveEditor::pasteKeysBtn()
{
    setDefaultButton(toolButtonActions[pasteCombinedButton], pasteButton);
    pasteKeys();
}

void CurveEditor::pasteKeysOffsetBtn()
{
    setDefaultButton(toolButtonActions[pasteCombinedAfterTimelineButton], pasteButton);
    pasteKeysOffset();
}

void CurveEditor::pasteKeysOnTimelineBtn()
{
    setDefaultButton(toolButtonActions[pasteCombinedOnCurrentFrameButton], pasteButton);
    pasteKeysOnTimeline();
}

void CurveEditor::resetAllCheckedF()
{
    functionEditor->keysDialog()->enableKeyFields(false);
    functionEditor->canvas().resetAllCurves();
    refreshEditor();
    refreshCommandLine(); // the expressions are gone
    update();
}

void CurveEditor::resetSelectedF()
{
    functionEditor->keysDialog()->enableKeyFields(false);
    functionEditor->canvas().resetEditingCurves();
    refreshEditor();
    refreshCommandLine(); // the expressions are gone
    update();
}

void CurveEditor::deleteCurveAndExp(const QString& node, const QString& curve,
                                    FunctionFloatBase** /*slot*/)
{
    NodeStruct* const record = searchAllNodeList(DottedName(node, curve).text());
    if (record) {
        manager.doCommand(new CommandDelCurves(this, QList<NodeStruct*>{record}));
    }
}
