#include "canvas/FrameGrid.h"
#include "editor/EditorParts.h"
#include "graphs/CanvasColors.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

class TestOptions : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }
    void cleanup() { CanvasColors::shared() = CanvasColors(); }

    void nodeTypesByPosition_data();
    void nodeTypesByPosition();
    void aPositionOutsideTheTableLeavesTheNodeType();
    void onlyAPositionOfTheTableRefreshesTheActions();
    void aStoredTypeOutsideTheTableIsShownAtPositionZero();
    void fieldsComeBackAsTheyWereSet();
    void coloursOfOneCanvas();
    void theFrameLinesGetAHairLineOfTheColourAlone();
    void fiveColoursAreSharedByAllEditors();
    void noColourAsksForARepaint();
};

void TestOptions::nodeTypesByPosition_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("type");
    QTest::newRow("Tcb node") << 0 << 2;
    QTest::newRow("Bezier node") << 1 << 1;
    QTest::newRow("Linear node") << 2 << 0;
    QTest::newRow("Stepped node") << 3 << 3;
}

void TestOptions::nodeTypesByPosition()
{
    QFETCH(int, position);
    CurveEditor editor(nullptr, QString());
    editor.setDefaultNodeType(position);
    QCOMPARE(editor.getDefaultNodeTypePos(), position);
    QTEST(editor.getFunctionEditor()->canvas().defaultNodeType, "type");
}

void TestOptions::aPositionOutsideTheTableLeavesTheNodeType()
{
    CurveEditor editor(nullptr, QString());
    editor.setDefaultNodeType(2);
    for (const int position : {7, 4, -1, INT_MAX, INT_MIN}) {
        editor.setDefaultNodeType(position);
        QCOMPARE(editor.getDefaultNodeTypePos(), 2);
    }
}

void TestOptions::onlyAPositionOfTheTableRefreshesTheActions()
{
    CurveEditor editor(nullptr, QString());
    QToolButton* const toolTips = toolButton(editor, "Other", 1);
    // A refresh puts the state of the entry right.
    toolTips->setChecked(true);
    editor.setDefaultNodeType(7);
    QVERIFY(toolTips->isChecked());
    editor.setDefaultNodeType(2);
    QVERIFY(!toolTips->isChecked());
}

void TestOptions::aStoredTypeOutsideTheTableIsShownAtPositionZero()
{
    CurveEditor editor(nullptr, QString());
    QCOMPARE(editor.getDefaultNodeTypePos(), 1);
    editor.getFunctionEditor()->canvas().defaultNodeType = 9;
    QCOMPARE(editor.getDefaultNodeTypePos(), 0);
}

void TestOptions::fieldsComeBackAsTheyWereSet()
{
    CurveEditor editor(nullptr, QString());
    QCOMPARE(editor.getHSnapRadius(), 0.1);
    QCOMPARE(editor.getVSnapRadius(), 0.25);
    QVERIFY(editor.isTooltipsDrag());
    QVERIFY(!editor.isDefaultBrokenTangent());
    QVERIFY(!editor.isDefaultAddFunc());
    editor.setHSnapRadius(0.3);
    editor.setVSnapRadius(0.4);
    editor.setTooltipsDrag(false);
    editor.setDefaultBrokenTangent(true);
    editor.setDefaultAddFunc(true);
    QCOMPARE(editor.getHSnapRadius(), 0.3);
    QCOMPARE(editor.getVSnapRadius(), 0.4);
    QVERIFY(!editor.isTooltipsDrag());
    QVERIFY(editor.isDefaultBrokenTangent());
    QVERIFY(editor.isDefaultAddFunc());
}

void TestOptions::coloursOfOneCanvas()
{
    CurveEditor editor(nullptr, QString());
    CurveEditor other(nullptr, QString());
    const CanvasFunctionBase& canvas = editor.getFunctionEditor()->canvas();
    const FrameGrid* const grid = canvas.frameGrid();
    editor.setCanvasColor(QColor(1, 0, 0));
    editor.setSelectionColor(QColor(2, 0, 0));
    editor.setFrameFontColor(QColor(3, 0, 0));
    editor.setFrameHLineColor(QColor(4, 0, 0));
    editor.setFrameVLineColor(QColor(5, 0, 0));
    editor.setTimeLineColor(QColor(6, 0, 0));
    QCOMPARE(canvas.canvasColor, QColor(1, 0, 0));
    QCOMPARE(canvas.selectionColor, QColor(2, 0, 0));
    QCOMPARE(grid->fontColor, QColor(3, 0, 0));
    QCOMPARE(grid->hLineColor, QColor(4, 0, 0));
    QCOMPARE(grid->vLineColor, QColor(5, 0, 0));
    QCOMPARE(grid->timeLineColor, QColor(6, 0, 0));
    QCOMPARE(other.getFunctionEditor()->canvas().canvasColor, QColor(0, 0, 0));
}

void TestOptions::theFrameLinesGetAHairLineOfTheColourAlone()
{
    CurveEditor editor(nullptr, QString());
    const FrameGrid* const grid = editor.getFunctionEditor()->canvas().frameGrid();
    QCOMPARE(grid->linePen.widthF(), 1.0);
    editor.setFrameLinesColor(Qt::green);
    QCOMPARE(grid->linePen.color(), QColor(Qt::green));
    QCOMPARE(grid->linePen.widthF(), 0.0);
    QCOMPARE(grid->linePen.style(), Qt::SolidLine);
}

void TestOptions::fiveColoursAreSharedByAllEditors()
{
    CurveEditor editor(nullptr, QString());
    editor.setControllerColor(QColor(1, 1, 1));
    editor.setBrokenControllerColor(QColor(2, 1, 1));
    editor.setControllerSelectedColor(QColor(3, 1, 1));
    editor.setControlPointColor(QColor(4, 1, 1));
    editor.setControlPointSelectedColor(QColor(5, 1, 1));
    const CanvasColors& colors = CanvasColors::shared();
    QCOMPARE(colors.controller, QColor(1, 1, 1));
    QCOMPARE(colors.brokenController, QColor(2, 1, 1));
    QCOMPARE(colors.controllerSelected, QColor(3, 1, 1));
    QCOMPARE(colors.controlPoint, QColor(4, 1, 1));
    QCOMPARE(colors.controlPointSelected, QColor(5, 1, 1));
}

void TestOptions::noColourAsksForARepaint()
{
    CurveEditor editor(nullptr, QString());
    editor.getFunctionEditor()->canvasDirty = false;
    for (void (CurveEditor::*const setter)(const QColor&) :
         {&CurveEditor::setCanvasColor, &CurveEditor::setSelectionColor,
          &CurveEditor::setControllerColor, &CurveEditor::setBrokenControllerColor,
          &CurveEditor::setControllerSelectedColor, &CurveEditor::setControlPointColor,
          &CurveEditor::setControlPointSelectedColor, &CurveEditor::setFrameFontColor,
          &CurveEditor::setFrameLinesColor, &CurveEditor::setFrameHLineColor,
          &CurveEditor::setFrameVLineColor, &CurveEditor::setTimeLineColor}) {
        (editor.*setter)(Qt::red);
        QVERIFY(!editor.getFunctionEditor()->canvasDirty);
    }
}

QTEST_MAIN(TestOptions)
#include "test_options.moc"
