#include "editor/Readout.h"

#include "editor/CurveEditor.h"
#include "editor/Timecode.h"
#include "graphs/ViewPort.h"
#include "widgets/CustomEditLine.h"

#include <QLabel>
#include <QToolBar>

#include <algorithm>

namespace curve_editor {

namespace {

/// Disabled as long as no key is shown in it.
CustomEditLine* newPositionField(QToolBar* bar, const char* name, const QString& spokenName)
{
    auto* const field = new CustomEditLine(bar);
    field->setObjectName(name);
    field->setAccessibleName(spokenName);
    field->setMinimumSize(50, 20);
    field->setMouseTracking(true);
    field->setAcceptDrops(true);
    field->setFocusPolicy(Qt::StrongFocus);
    field->setEnabled(false);
    bar->addWidget(field);
    return field;
}

QLabel* newLabel(QToolBar* bar, const char* name, const QString& text)
{
    auto* const label = new QLabel(text, bar);
    label->setObjectName(name);
    label->setFixedWidth(80);
    bar->addWidget(label);
    return label;
}

} // namespace

void Readout::build(QToolBar* bar)
{
    auto* const filler = new QLabel(bar);
    filler->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    filler->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    bar->addWidget(filler);

    posX = newPositionField(bar, "posX", CurveEditor::tr("Position X"));
    posY = newPositionField(bar, "posY", CurveEditor::tr("Position Y"));

    auto* const pointerLabel = new QLabel(CurveEditor::tr("    Pointer:  "), bar);
    pointerLabel->setMinimumWidth(40);
    bar->addWidget(pointerLabel);
    frameLabel = newLabel(bar, "frameLabel", CurveEditor::tr("F "));
    timecodeLabel = newLabel(bar, "timecodeLabel", CurveEditor::tr("TC "));
    valueLabel = newLabel(bar, "valueLabel", CurveEditor::tr("y "));
    functionLabel = newLabel(bar, "functionLabel", CurveEditor::tr("f(x) "));
}

CustomEditLine* Readout::positionX() const
{
    return posX;
}

CustomEditLine* Readout::positionY() const
{
    return posY;
}

void Readout::showTimeOf(const CustomEditLine* field)
{
    posX->setText(field->text());
    posX->setToolTip(posX->text());
}

void Readout::showPointer(double time, double value, double curveValue, const ViewPort& view,
                          int decimals)
{
    const int digits = std::min(decimals, CustomEditLine::mostDecimals);
    const auto text = [digits](const QString& pattern, double number) {
        return pattern.arg(number, 0, 'f', digits);
    };
    frameLabel->setText(view.showFrames ? text(CurveEditor::tr("F %1"), view.fps * time)
                                        : text(CurveEditor::tr("t %1"), time));
    valueLabel->setText(text(CurveEditor::tr("y %1"), value));
    functionLabel->setText(text(CurveEditor::tr("f(x) %1"), curveValue));
    timecodeLabel->setText(
        CurveEditor::tr("TC %1").arg(timecodeText(time, view.fps, decimals, view.frameDigits)));
}

} // namespace curve_editor
