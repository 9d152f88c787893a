// The dialogs that ask for numbers. While one runs, its host may delete the editor, and the dialog
// as its child with it: after `exec` nothing is touched before the dialog was seen to live.

#include "editor/CurveEditor.h"

#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "editor/CurveEditorPrivate.h"
#include "widgets/CurveEditorSettings.h"
#include "widgets/InterpolationPositions.h"
#include "widgets/PanDialog.h"
#include "widgets/ScaleDialog.h"
#include "widgets/ViewportSettings.h"

#include <QPointer>

#include <cmath>

namespace {

QString numberText(double number)
{
    return QString("%1").arg(number, 0, 'g', -1, QLatin1Char(' '));
}

/// A text that is no finite number counts as 0.
double numberIn(const QLineEdit* field)
{
    const double number = field->text().toDouble();
    return std::isfinite(number) ? number : 0.0;
}

/// A dialog for one answer, on the heap: a host that deletes the editor takes it along.
template <class Dialog>
class Question
{
public:
    explicit Question(CurveEditor* editor)
        : asker(editor)
        , dialog(new Dialog(editor))
    {}
    ~Question() { delete dialog.data(); }
    Q_DISABLE_COPY_MOVE(Question)

    Dialog* operator->() const { return dialog; }

    /// Whether the user said Ok, and the dialog with its answers is still there.
    bool isAccepted() { return dialog->exec() == QDialog::Accepted && dialog; }
    bool hasAsker() const { return asker; }

private:
    QPointer<CurveEditor> asker;
    QPointer<Dialog> dialog;
};

} // namespace

void CurveEditor::setOptions()
{
    CanvasFunctionBase& canvas = d->canvas();
    Question<CurveEditorSettings> question(this);
    question->radiusH->setText(numberText(canvas.hSnapRadius));
    question->radiusV->setText(numberText(canvas.vSnapRadius));
    question->defaultBroken->setChecked(canvas.defaultBrokenTangent);
    question->defaultAddFunc->setChecked(canvas.defaultAddFunction);
    question->showToolTipsOnDrag->setChecked(canvas.toolTipsWhileDragging);
    question->nodeTypeCombo->setCurrentIndex(getDefaultNodeTypePos());
    if (!question.isAccepted()) {
        return;
    }
    canvas.hSnapRadius = numberIn(question->radiusH);
    canvas.vSnapRadius = numberIn(question->radiusV);
    canvas.defaultBrokenTangent = question->defaultBroken->isChecked();
    canvas.defaultAddFunction = question->defaultAddFunc->isChecked();
    canvas.toolTipsWhileDragging = question->showToolTipsOnDrag->isChecked();
    curve_editor::setInterpolationAt(question->nodeTypeCombo->currentIndex(),
                                     canvas.defaultNodeType);
    d->repaintCanvas();
}

void CurveEditor::setRange()
{
    Question<ViewportSettings> question(this);
    question->minX->setText(numberText(d->functionEditor->minX));
    question->minY->setText(numberText(d->functionEditor->minY));
    question->maxX->setText(numberText(d->functionEditor->maxX));
    question->maxY->setText(numberText(d->functionEditor->maxY));
    if (!question.isAccepted()) {
        return;
    }
    d->functionEditor->minX = numberIn(question->minX);
    d->functionEditor->minY = numberIn(question->minY);
    d->functionEditor->maxX = numberIn(question->maxX);
    d->functionEditor->maxY = numberIn(question->maxY);
    d->repaintCanvas();
}

void CurveEditor::setScaleSelection()
{
    Question<ScaleDialog> question(this);
    question->scaleX->setText("1.0");
    question->scaleY->setText("1.0");
    if (question.isAccepted()) {
        d->canvas().scaleSelection(numberIn(question->scaleX), numberIn(question->scaleY));
    }
    if (question.hasAsker()) {
        d->actions.releaseButton(scaleSelectionButton);
        refreshEditor();
    }
}

void CurveEditor::setPanSelection()
{
    Question<PanDialog> question(this);
    question->setSeconds(!d->functionEditor->showFrames);
    question->fps = d->functionEditor->fps;
    question->panX->setDecimals(d->numberOfDecimals);
    question->panY->setDecimals(d->numberOfDecimals);
    question->panX->setValue(0.0);
    question->panY->setValue(0.0);
    if (question.isAccepted()) {
        const double unit = question->isSeconds ? 1.0 : 1.0 / d->functionEditor->fps;
        const double offset = question->panX->value() * unit;
        // A rate of 0 frames per second gives no time.
        d->canvas().panSelection(std::isfinite(offset) ? offset : 0.0, question->panY->value());
    }
    if (question.hasAsker()) {
        d->actions.releaseButton(panSelectionButton);
        refreshEditor();
    }
}
