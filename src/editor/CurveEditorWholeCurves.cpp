// The clipboard, and taking the content of whole curves away.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "commands/CommandDelCurves.h"
#include "curves/DottedName.h"
#include "editor/CurveEditorPrivate.h"
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
    d->canvas().copy();
}

void CurveEditor::copyKeys()
{
    d->canvas().copyKeys();
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
    d->actions.setDefaultButton(copyCurveButton, copyButton);
    copy();
}

void CurveEditor::copyKeysBtn()
{
    d->actions.setDefaultButton(copySelectedKeysButton, copyButton);
    copyKeys();
}

void CurveEditor::pasteBtn()
{
    d->actions.setDefaultButton(pasteAndReplaceButton, pasteButton);
    paste();
}

void CurveEditor::pasteOffsetBtn()
{
    d->actions.setDefaultButton(pasteAndReplaceAfterTimelineButton, pasteButton);
    pasteOffset();
}

void CurveEditor::pasteOnTimelineBtn()
{
    d->actions.setDefaultButton(pasteAndReplaceOnCurrentFrameButton, pasteButton);
    pasteOnTimeline();
}

void CurveEditor::pasteKeysBtn()
{
    d->actions.setDefaultButton(pasteCombinedButton, pasteButton);
    pasteKeys();
}

void CurveEditor::pasteKeysOffsetBtn()
{
    d->actions.setDefaultButton(pasteCombinedAfterTimelineButton, pasteButton);
    pasteKeysOffset();
}

void CurveEditor::pasteKeysOnTimelineBtn()
{
    d->actions.setDefaultButton(pasteCombinedOnCurrentFrameButton, pasteButton);
    pasteKeysOnTimeline();
}

void CurveEditor::resetAllCheckedF()
{
    d->keysDialog()->enableKeyFields(false);
    d->canvas().resetAllCurves();
    refreshEditor();
    refreshCommandLine(); // the expressions are gone
    update();
}

void CurveEditor::resetSelectedF()
{
    d->keysDialog()->enableKeyFields(false);
    d->canvas().resetEditingCurves();
    refreshEditor();
    refreshCommandLine(); // the expressions are gone
    update();
}

void CurveEditor::deleteCurveAndExp(const QString& node, const QString& curve,
                                    FunctionFloatBase** /*slot*/)
{
    NodeStruct* const record = searchAllNodeList(DottedName(node, curve).text());
    if (record) {
        d->manager.doCommand(new CommandDelCurves(this, QList<NodeStruct*>{record}));
    }
}
