// The window put together: canvas, tree, read-outs.

#include "editor/CurveEditor.h"

#include "canvas/FunctionEditor.h"
#include "core/Truncate.h"
#include "editor/MenuTable.h"
#include "widgets/ControlMenu2.h"
#include "widgets/CurveKeysDialog.h"
#include "widgets/CustomEditLine.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>

#include <cmath>

void CurveEditor::preInit()
{
    mainMenu->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    splitter10->resize(truncateToInt(std::ceil(width() * 0.85)), 300);

    QPalette menuPalette = mainMenu->palette();
    menuPalette.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::darkGray);
    mainMenu->setPalette(menuPalette);
    menuBar = new QMenuBar(mainMenu);
    menuBar->setNativeMenuBar(false);
    mainMenu->addWidget(menuBar);

    menus.fill(nullptr, curve_editor::editorMenusCount);
    initActions();
    addToSpline->setCheckable(true);
    addToSpline->setFlat(true);
    initTopToolbar();
    initMenus();
    treeMenu = new ControlMenu2(this);
    initMainMenu();
    initInsertMenu();

    tabExpresion->setContentsMargins(10, 0, 0, 0);
    hboxLayout->setSizeConstraint(QLayout::SetMinimumSize);
    hboxLayout->setAlignment(Qt::AlignLeft);
    languageChange();
}

/// What stands on mainMenu to the right of the menu bar.
void CurveEditor::initMainMenu()
{
    auto* const filler = new QLabel(mainMenu);
    filler->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    filler->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    mainMenu->addWidget(filler);

    posX = newPositionField("posX");
    posX->setAccessibleName(tr("Position X"));
    posY = newPositionField("posY");
    posY->setAccessibleName(tr("Position Y"));

    auto* const pointerLabel = new QLabel(tr("    Pointer:  "), mainMenu);
    pointerLabel->setMinimumWidth(40);
    mainMenu->addWidget(pointerLabel);
    frameLabel = newReadout("frameLabel", tr("F "));
    timecodeLabel = newReadout("timecodeLabel", tr("TC "));
    valueLabel = newReadout("valueLabel", tr("y "));
    functionLabel = newReadout("functionLabel", tr("f(x) "));
}

/// Disabled as long as no key is shown in it.
CustomEditLine* CurveEditor::newPositionField(const char* name)
{
    auto* const field = new CustomEditLine(mainMenu);
    field->setObjectName(name);
    field->setMinimumSize(50, 20);
    field->setMouseTracking(true);
    field->setAcceptDrops(true);
    field->setFocusPolicy(Qt::StrongFocus);
    field->setEnabled(false);
    mainMenu->addWidget(field);
    return field;
}

CustomEditLine* CurveEditor::positionX() const
{
    return posX;
}

CustomEditLine* CurveEditor::positionY() const
{
    return posY;
}

QLabel* CurveEditor::newReadout(const char* name, const QString& text)
{
    auto* const label = new QLabel(text, mainMenu);
    label->setObjectName(name);
    label->setFixedWidth(80);
    mainMenu->addWidget(label);
    return label;
}

void CurveEditor::initCanvas()
{
    functionEditor = new FunctionEditor(functionView, this);
    manager.setGestureEnd([this](const curve_editor::CurveCommand* next) {
        functionEditor->canvas().endGestureBefore(next);
        functionEditor->keysDialog()->endGesture();
    });
    auto* const layout = new QHBoxLayout(functionView);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(functionEditor);
    QPalette palette = functionView->palette();
    palette.setColor(QPalette::Window, Qt::black);
    functionView->setPalette(palette);
}
