#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <cmath>
#include <functional>
#include <limits>

class TestViewActions : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void timeLineByFrameAndByTime();
    void frameDigitsOfARate_data();
    void frameDigitsOfARate();
    void aRateOfZeroDoesNoHarm();
    void settersOfTheRangeWriteWhatTheyAreGivenWithoutACheck();
    void settersOfTheViewMarkTheCanvas();
    void fitsFitTheirAxis_data();
    void fitsFitTheirAxis();
    void eachFitEntryBecomesItsButtonsOwn_data();
    void eachFitEntryBecomesItsButtonsOwn();
    void centeringKeepsWidthAndValues();
    void resettingTheViewSetsFramesModeAndKeepsRateAndTimeLine();
    void switchSnapMakesBothEqual();
    void eachSnapEntrySwitchesItsAxis();
    void theToolTipsSwitchChecksTheSnapEntryForAMoment();
    void slotsOfTheAxisLeaveItsActions();
    void toolTipsAreCopiedToTheLabelsAndLeaveTheSnapEntryAsItIs();
};

void TestViewActions::timeLineByFrameAndByTime()
{
    CurveEditor editor(nullptr, QString());
    editor.setFps(25.0);
    QVERIFY(QMetaObject::invokeMethod(&editor, "setTimeLine", Q_ARG(ZK_INT, 50)));
    QCOMPARE(editor.getFunctionEditor()->timeLine, 2.0);
    editor.setTimeLine(3.25);
    QCOMPARE(editor.getFunctionEditor()->timeLine, 3.25);
}

void TestViewActions::frameDigitsOfARate_data()
{
    QTest::addColumn<double>("fps");
    QTest::addColumn<int>("digits");
    QTest::newRow("1") << 1.0 << 0;
    QTest::newRow("5") << 5.0 << 1;
    QTest::newRow("24") << 24.0 << 2;
    QTest::newRow("25") << 25.0 << 2;
    QTest::newRow("100") << 100.0 << 2;
    QTest::newRow("101") << 101.0 << 3;
    QTest::newRow("not a number") << std::nan("") << 0;
}

void TestViewActions::frameDigitsOfARate()
{
    QFETCH(double, fps);
    CurveEditor editor(nullptr, QString());
    editor.setFps(fps);
    QTEST(editor.getFunctionEditor()->frameDigits, "digits");
    QVERIFY(std::isnan(fps) ? std::isnan(editor.getFps()) : editor.getFps() == fps);
}

void TestViewActions::aRateOfZeroDoesNoHarm()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    for (const double fps :
         {0.0, -25.0, 1e-300, std::numeric_limits<double>::infinity(), std::nan("")}) {
        fixture.editor.setFps(fps);
        fixture.editor.setTimeLine(ZK_INT(50));
        fixture.editor.setFuncPosInfo(1.5, 2.0, 3.0);
        fixture.editor.switchFramesTime();
        fixture.editor.switchFramesTime();
        fixture.editor.setPosX(2.0);
        fixture.paint();
    }
    QVERIFY(std::isnan(fixture.editor.getFps()));
}

void TestViewActions::settersOfTheRangeWriteWhatTheyAreGivenWithoutACheck()
{
    CurveEditor editor(nullptr, QString());
    const FunctionEditor* const canvas = editor.getFunctionEditor();
    editor.setTimeRange(20.0, 10.0);
    QCOMPARE(canvas->minX, 20.0);
    QCOMPARE(canvas->maxX, 10.0);
    editor.setMinValue(5.0);
    editor.setMaxValue(-5.0);
    QCOMPARE(canvas->minY, 5.0);
    QCOMPARE(canvas->maxY, -5.0);
    editor.show();
    editor.getFunctionEditor()->repaint();
}

void TestViewActions::settersOfTheViewMarkTheCanvas()
{
    CurveEditor editor(nullptr, QString());
    FunctionEditor* const canvas = editor.getFunctionEditor();
    const std::function<void()> calls[] = {
        [&] { editor.setTimeLine(1.0); },       [&] { editor.setTimeLine(ZK_INT(1)); },
        [&] { editor.setFps(25.0); },           [&] { editor.setTimeRange(0.0, 1.0); },
        [&] { editor.setMinValue(0.0); },       [&] { editor.setMaxValue(1.0); },
        [&] { editor.setShowTime(); },          [&] { editor.setShowFrames(); },
        [&] { editor.switchFramesTime(); },     [&] { editor.centerTimeline(); },
        [&] { editor.resetViewport(); },        [&] { editor.completeViewport(); },
        [&] { editor.completeViewportSelV(); },
    };
    for (const auto& call : calls) {
        canvas->canvasDirty = false;
        call();
        QVERIFY(canvas->canvasDirty);
    }
}

void TestViewActions::fitsFitTheirAxis_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<bool>("selected");
    QTest::newRow("all") << QByteArray("completeViewport") << true << true << false;
    QTest::newRow("H") << QByteArray("completeViewportH") << true << false << false;
    QTest::newRow("V") << QByteArray("completeViewportV") << false << true << false;
    QTest::newRow("Sel") << QByteArray("completeViewportSel") << true << true << true;
    QTest::newRow("SelH") << QByteArray("completeViewportSelH") << true << false << true;
    QTest::newRow("SelV") << QByteArray("completeViewportSelV") << false << true << true;
    QTest::newRow("all Btn") << QByteArray("completeViewportBtn") << true << true << false;
    QTest::newRow("H Btn") << QByteArray("completeViewportHBtn") << true << false << false;
    QTest::newRow("V Btn") << QByteArray("completeViewportVBtn") << false << true << false;
    QTest::newRow("Sel Btn") << QByteArray("completeViewportSelBtn") << true << true << true;
    QTest::newRow("SelH Btn") << QByteArray("completeViewportSelHBtn") << true << false << true;
    QTest::newRow("SelV Btn") << QByteArray("completeViewportSelVBtn") << false << true << true;
}

void TestViewActions::fitsFitTheirAxis()
{
    QFETCH(QByteArray, slot);
    QFETCH(bool, horizontal);
    QFETCH(bool, vertical);
    QFETCH(bool, selected);
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 30.0}, {40.0, 110.0}});
    fixture.selectKeys("n.c", {0, 1});
    fixture.setView(0.0, 50.0, -5.0, 40.0);
    QVERIFY(QMetaObject::invokeMethod(&fixture.editor, slot.constData()));
    const FunctionEditor& canvas = fixture.canvas();
    QCOMPARE(canvas.minX, !horizontal ? 0.0 : selected ? 9.0 : 7.0);
    QCOMPARE(canvas.maxX, !horizontal ? 50.0 : selected ? 21.0 : 43.0);
    QCOMPARE(canvas.minY, !vertical ? -5.0 : selected ? 8.0 : 0.0);
    QCOMPARE(canvas.maxY, !vertical ? 40.0 : selected ? 32.0 : 120.0);
}

void TestViewActions::eachFitEntryBecomesItsButtonsOwn_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("text");
    QTest::newRow("22") << QByteArray("completeViewportBtn") << 0 << "Fit View";
    QTest::newRow("23") << QByteArray("completeViewportHBtn") << 0 << "Fit Horizontal View";
    QTest::newRow("24") << QByteArray("completeViewportVBtn") << 0 << "Fit Vertical View";
    QTest::newRow("26") << QByteArray("completeViewportSelBtn") << 1 << "Fit View To Selection";
    QTest::newRow("27") << QByteArray("completeViewportSelHBtn") << 1
                        << "Fit Horizontal View To Selection";
    QTest::newRow("28") << QByteArray("completeViewportSelVBtn") << 1
                        << "Fit Vertical View To Selection";
}

void TestViewActions::eachFitEntryBecomesItsButtonsOwn()
{
    QFETCH(QByteArray, slot);
    QFETCH(int, button);
    QFETCH(QString, text);
    CurveEditor editor(nullptr, QString());
    QVERIFY(QMetaObject::invokeMethod(&editor, slot.constData()));
    const QToolButton* const target = toolButton(editor, "Fit", button);
    QCOMPARE(target->defaultAction(), actionTitled(target->menu()->actions(), text));
}

void TestViewActions::centeringKeepsWidthAndValues()
{
    CurveEditor editor(nullptr, QString());
    editor.setTimeRange(0.0, 10.0);
    editor.setMinValue(-3.0);
    editor.setMaxValue(4.0);
    editor.setTimeLine(100.0);
    editor.centerTimeline();
    const FunctionEditor* const canvas = editor.getFunctionEditor();
    QCOMPARE(canvas->minX, 95.0);
    QCOMPARE(canvas->maxX, 105.0);
    QCOMPARE(canvas->minY, -3.0);
    QCOMPARE(canvas->maxY, 4.0);
    QCOMPARE(canvas->newMinX, 95.0);
    QCOMPARE(canvas->newMaxX, 105.0);
    QCOMPARE(canvas->newMaxY, -3.0);
    QCOMPARE(canvas->newMinY, 4.0);
}

void TestViewActions::resettingTheViewSetsFramesModeAndKeepsRateAndTimeLine()
{
    CurveEditor editor(nullptr, QString());
    editor.setFps(25.0);
    editor.setTimeLine(7.0);
    editor.setTimeRange(3.0, 4.0);
    editor.setMinValue(3.0);
    editor.setMaxValue(4.0);
    editor.setShowTime();
    FunctionEditor* const canvas = editor.getFunctionEditor();
    canvas->zoomMode = true;
    canvas->rubberDrag = true;
    canvas->minRectFraction = 1.0;
    editor.resetViewport();
    QVERIFY(editor.isModeFrames());
    QCOMPARE(canvas->minX, -1.0);
    QCOMPARE(canvas->maxX, 200.0);
    QCOMPARE(canvas->minY, -1.0);
    QCOMPARE(canvas->maxY, 1.0);
    QCOMPARE(canvas->newMinX, -1.0);
    QCOMPARE(canvas->newMaxY, -1.0);
    QCOMPARE(canvas->newMaxX, 200.0);
    QCOMPARE(canvas->newMinY, 1.0);
    QCOMPARE(canvas->minRectFraction, 0.05000000074505806);
    QVERIFY(!canvas->zoomMode && !canvas->rubberDrag && canvas->canvasDirty);
    QCOMPARE(editor.getFps(), 25.0);
    QCOMPARE(canvas->timeLine, 7.0);
}

void TestViewActions::switchSnapMakesBothEqual()
{
    CurveEditor editor(nullptr, QString());
    CanvasFunctionBase& canvas = editor.getFunctionEditor()->canvas();
    canvas.horizontalSnap = true;
    editor.switchSnap();
    QVERIFY(canvas.horizontalSnap && canvas.verticalSnap);
    editor.switchSnap();
    QVERIFY(!canvas.horizontalSnap && !canvas.verticalSnap);
    editor.switchSnap();
    QVERIFY(canvas.horizontalSnap && canvas.verticalSnap);
    editor.switchSnapH();
    QVERIFY(!canvas.horizontalSnap && canvas.verticalSnap);
    editor.switchSnap();
    QVERIFY(canvas.horizontalSnap && canvas.verticalSnap);
}

void TestViewActions::eachSnapEntrySwitchesItsAxis()
{
    CurveEditor editor(nullptr, QString());
    CanvasFunctionBase& canvas = editor.getFunctionEditor()->canvas();
    QAction* const horizontal = menuAction(editor, "View/Snap to Grid/Horizontal Snap");
    QAction* const vertical = menuAction(editor, "View/Snap to Grid/Vertical Snap");
    const QToolButton* const both = toolButton(editor, "Snap", 0);
    horizontal->trigger();
    QVERIFY(canvas.horizontalSnap && !canvas.verticalSnap);
    QVERIFY(horizontal->isChecked() && !vertical->isChecked() && !both->isChecked());
    vertical->trigger();
    QVERIFY(canvas.horizontalSnap && canvas.verticalSnap);
    QVERIFY(horizontal->isChecked() && vertical->isChecked() && both->isChecked());
    horizontal->trigger();
    QVERIFY(!canvas.horizontalSnap && canvas.verticalSnap);
    QVERIFY(!horizontal->isChecked() && vertical->isChecked() && !both->isChecked());
}

void TestViewActions::theToolTipsSwitchChecksTheSnapEntryForAMoment()
{
    CurveEditor editor(nullptr, QString());
    QSignalSpy toggled(menuAction(editor, "View/Snap to Grid/Horizontal Snap"),
                       SIGNAL(toggled(bool)));
    editor.switchToolTips();
    QCOMPARE(toggled.count(), 2);
    QCOMPARE(toggled.at(0).at(0).toBool(), true);
    QCOMPARE(toggled.at(1).at(0).toBool(), false);
}

void TestViewActions::slotsOfTheAxisLeaveItsActions()
{
    CurveEditor editor(nullptr, QString());
    const QAction* const time = menuAction(editor, "View/Horizontal axis/Show time");
    const QAction* const frames = menuAction(editor, "View/Horizontal axis/Show frames");
    for (void (CurveEditor::*const slot)() :
         {&CurveEditor::setShowTime, &CurveEditor::setShowFrames, &CurveEditor::switchFramesTime,
          &CurveEditor::resetViewport}) {
        (editor.*slot)();
        QVERIFY(!time->isChecked());
        QVERIFY(frames->isChecked());
    }
}

void TestViewActions::toolTipsAreCopiedToTheLabelsAndLeaveTheSnapEntryAsItIs()
{
    CurveEditor editor(nullptr, QString());
    FunctionEditor* const canvas = editor.getFunctionEditor();
    editor.switchToolTips();
    QVERIFY(canvas->canvas().toolTipsOn);
    QVERIFY(canvas->showLabels);
    QVERIFY(toolButton(editor, "Other", 1)->isChecked());
    QVERIFY(!menuAction(editor, "View/Snap to Grid/Horizontal Snap")->isChecked());
    editor.switchSnapH();
    editor.switchToolTips();
    QVERIFY(!canvas->canvas().toolTipsOn);
    QVERIFY(!canvas->showLabels);
    QVERIFY(!toolButton(editor, "Other", 1)->isChecked());
    QVERIFY(menuAction(editor, "View/Snap to Grid/Horizontal Snap")->isChecked());
}

QTEST_MAIN(TestViewActions)
#include "test_view_actions.moc"

#include <QSignalSpy>
