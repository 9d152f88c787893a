#include "editor/EditorParts.h"
#include "editor/Timecode.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "widgets/CurveKeysDialog.h"
#include "widgets/CustomEditLine.h"

#include <QLabel>

#include <cmath>
#include <limits>

namespace {

CustomEditLine* field(const CurveEditor& editor, const char* name)
{
    return editor.mainMenu->findChild<CustomEditLine*>(name);
}

CurveKeysDialog& keys(const CurveEditor& editor)
{
    return *editor.getFunctionEditor()->keysDialog();
}

/// Without curves; a first repaint has told the key dialog so.
class EmptyEditor : public CurveEditor
{
public:
    EmptyEditor()
        : CurveEditor(nullptr, QString())
    {
        getFunctionEditor()->canvas().updateCanvas();
    }
};

} // namespace

class TestReadout : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void timecodes_data();
    void timecodes();
    void timecodesBearAnyNumbers();
    void theLabelsBeginWithTheirNames();
    void thePositionIsShownInFramesOrSeconds();
    void aHugeNumberOfDecimalsIsStoredAndShownAsTheMost();
    void thePointerOnTheCanvasIsReadOut();
    void anEditorStartsInFrames();
    void switchingFromFramesDividesThePositionAndLeavesTheActions();
    void switchingToFramesMultipliesAndRenewsTheOtherToolTip();
    void thePositionIsReadFromTheKeyDialog();
    void theModeAlreadyShownChangesOnlyTheLabel();
    void aResetOfTheViewShowsFramesUnderTheOldLabel();
    void aTextThatIsNoNumberCountsAsZero();
    void decimalsReachEveryNumberField();
};

void TestReadout::timecodes_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("fps");
    QTest::addColumn<QString>("text");
    QTest::newRow("65.5 seconds at 25") << 65.5 << 25.0 << "TC 01:05:12";
    QTest::newRow("0 seconds at 25") << 0.0 << 25.0 << "TC 00:00:00";
    QTest::newRow("3.5 seconds at 5") << 3.5 << 5.0 << "TC 0:3:2";
    QTest::newRow("two hours stay minutes") << 7200.0 << 25.0 << "TC 120:00:00";
    QTest::newRow("a rate of 1 has no width") << 61.0 << 1.0 << "TC 1:1:0";
    QTest::newRow("a rate of 101 has three digits") << 1.5 << 101.0 << "TC 000:001:050";
    // Minutes and seconds are cut toward zero, the frame counts upward from the second below.
    QTest::newRow("before zero") << -1.25 << 10.0 << "TC 0:-1:7";
}

void TestReadout::timecodes()
{
    QFETCH(double, seconds);
    QFETCH(double, fps);
    CurveEditor editor(nullptr, QString());
    editor.setFps(fps);
    editor.setFuncPosInfo(seconds, 0.0, 0.0);
    QTEST(readout(editor, "timecodeLabel"), "text");
    // The form is the same in seconds.
    editor.setShowTime();
    editor.setFuncPosInfo(seconds, 0.0, 0.0);
    QTEST(readout(editor, "timecodeLabel"), "text");
}

void TestReadout::timecodesBearAnyNumbers()
{
    const double endless = std::numeric_limits<double>::infinity();
    for (const double seconds : {0.0, 1e300, -1e300, endless, -endless, std::nan("")}) {
        for (const double fps : {0.0, -1.0, 1e-300, 1e300, endless, std::nan("")}) {
            for (const int digits : {0, 2, -2, INT_MAX, INT_MIN}) {
                const QString text = curve_editor::timecodeText(seconds, fps, 2, digits);
                QCOMPARE(text.count(':'), 2);
                QVERIFY(text.size() < 1000);
            }
        }
    }
}

void TestReadout::theLabelsBeginWithTheirNames()
{
    CurveEditor editor(nullptr, QString());
    QCOMPARE(readout(editor, "frameLabel"), QString("F "));
    QCOMPARE(readout(editor, "timecodeLabel"), QString("TC "));
    QCOMPARE(readout(editor, "valueLabel"), QString("y "));
    QCOMPARE(readout(editor, "functionLabel"), QString("f(x) "));
    for (const char* const name : {"frameLabel", "timecodeLabel", "valueLabel", "functionLabel"}) {
        const QLabel* const label = editor.mainMenu->findChild<QLabel*>(name);
        QCOMPARE(label->minimumWidth(), 80);
        QCOMPARE(label->maximumWidth(), 80);
    }
}

void TestReadout::thePositionIsShownInFramesOrSeconds()
{
    CurveEditor editor(nullptr, QString());
    editor.setFps(25.0);
    editor.setFuncPosInfo(1.5, -2.345, 1000.0);
    QCOMPARE(readout(editor, "frameLabel"), QString("F 37.50"));
    QCOMPARE(readout(editor, "valueLabel"), QString("y -2.35"));
    QCOMPARE(readout(editor, "functionLabel"), QString("f(x) 1000.00"));
    editor.setShowTime();
    editor.setNumberOfDecimals(0);
    editor.setFuncPosInfo(1.6, -2.345, 0.5);
    QCOMPARE(readout(editor, "frameLabel"), QString("t 2"));
    QCOMPARE(readout(editor, "valueLabel"), QString("y -2"));
}

void TestReadout::aHugeNumberOfDecimalsIsStoredAndShownAsTheMost()
{
    CurveEditor editor(nullptr, QString());
    editor.setNumberOfDecimals(INT_MAX);
    QCOMPARE(editor.getNumberOfDecimals(), INT_MAX);
    editor.setFuncPosInfo(1.5, 0.5, 0.25);
    QCOMPARE(readout(editor, "valueLabel"),
             QString("y 0.5") + QString(CustomEditLine::mostDecimals - 1, '0'));
}

void TestReadout::thePointerOnTheCanvasIsReadOut()
{
    EditorFixture fixture;
    fixture.editor.setFps(10.0);
    fixture.editCurve("n.c", {{0.0, 5.0}, {50.0, 5.0}});
    fixture.moveTo(EditorFixture::pixel(20.0, 10.0), Qt::NoButton);
    QCOMPARE(readout(fixture.editor, "frameLabel"), QString("F 200.00"));
    QCOMPARE(readout(fixture.editor, "valueLabel"), QString("y 10.00"));
    QCOMPARE(readout(fixture.editor, "functionLabel"), QString("f(x) 5.00"));
    QCOMPARE(readout(fixture.editor, "timecodeLabel"), QString("TC 0:20:0"));
}

void TestReadout::anEditorStartsInFrames()
{
    CurveEditor editor(nullptr, QString());
    QVERIFY(editor.isModeFrames());
    QVERIFY(!editor.isModeTime());
    QCOMPARE(editor.getFps(), 10.0);
}

void TestReadout::switchingFromFramesDividesThePositionAndLeavesTheActions()
{
    EmptyEditor editor;
    editor.setFps(25.0);
    editor.setPosX(4.0);
    QCOMPARE(keys(editor).posX->text(), QString("100.00"));
    QCOMPARE(field(editor, "posX")->text(), QString("100.00"));
    editor.switchFramesTime();
    QVERIFY(editor.isModeTime());
    QCOMPARE(keys(editor).posX->text(), QString("4.00"));
    QCOMPARE(keys(editor).posX->toolTip(), QString("4.00"));
    QCOMPARE(field(editor, "posX")->text(), QString("4.00"));
    QCOMPARE(field(editor, "posX")->toolTip(), QString("4.00"));
    QVERIFY(menuAction(editor, "View/Horizontal axis/Show frames")->isChecked());
    QVERIFY(!menuAction(editor, "View/Horizontal axis/Show time")->isChecked());
}

void TestReadout::switchingToFramesMultipliesAndRenewsTheOtherToolTip()
{
    EmptyEditor editor;
    editor.setFps(25.0);
    editor.setShowTime();
    editor.setPosX(4.0);
    field(editor, "posY")->setText("7.00");
    editor.switchFramesTime();
    QVERIFY(editor.isModeFrames());
    QCOMPARE(keys(editor).posX->text(), QString("100.00"));
    QCOMPARE(field(editor, "posX")->text(), QString("100.00"));
    QCOMPARE(field(editor, "posX")->toolTip(), QString("4.00"));
    QCOMPARE(field(editor, "posY")->toolTip(), QString("7.00"));
}

void TestReadout::thePositionIsReadFromTheKeyDialog()
{
    EmptyEditor editor;
    editor.setFps(25.0);
    field(editor, "posX")->setText("9.00");
    keys(editor).posX->setText("50");
    editor.setShowTime();
    QCOMPARE(keys(editor).posX->text(), QString("2.00"));
    QCOMPARE(field(editor, "posX")->text(), QString("2.00"));
}

void TestReadout::theModeAlreadyShownChangesOnlyTheLabel()
{
    EmptyEditor editor;
    QCOMPARE(keys(editor).posXLabel->text(), QString("Frame:"));
    editor.setPosX(4.0);
    editor.setShowFrames();
    QCOMPARE(field(editor, "posX")->text(), QString("40.00"));
    editor.setShowTime();
    QCOMPARE(keys(editor).posXLabel->text(), QString("Time:"));
    editor.getFunctionEditor()->canvasDirty = false;
    keys(editor).posXLabel->setText("changed");
    editor.setShowTime();
    QCOMPARE(keys(editor).posXLabel->text(), QString("Time:"));
    QCOMPARE(field(editor, "posX")->text(), QString("4.00"));
    QVERIFY(!editor.getFunctionEditor()->canvasDirty);
}

void TestReadout::aResetOfTheViewShowsFramesUnderTheOldLabel()
{
    EmptyEditor editor;
    editor.setShowTime();
    editor.resetViewport();
    QVERIFY(editor.isModeFrames());
    QCOMPARE(keys(editor).posXLabel->text(), QString("Time:"));
}

void TestReadout::aTextThatIsNoNumberCountsAsZero()
{
    EmptyEditor editor;
    for (const char* const text : {"", "nan", "inf", "abc", "..."}) {
        editor.setShowFrames();
        keys(editor).posX->setText(text);
        editor.setShowTime();
        QCOMPARE(field(editor, "posX")->text(), QString("0.00"));
    }
}

void TestReadout::decimalsReachEveryNumberField()
{
    CurveEditor editor(nullptr, QString());
    QCOMPARE(editor.getNumberOfDecimals(), 2);
    editor.setNumberOfDecimals(4);
    QCOMPARE(editor.getNumberOfDecimals(), 4);
    QList<CustomEditLine*> lines = keys(editor).findChildren<CustomEditLine*>();
    QCOMPARE(lines.size(), 10);
    lines << field(editor, "posX") << field(editor, "posY");
    for (CustomEditLine* const line : lines) {
        line->setValue(1.0);
        QCOMPARE(line->text(), QString("1.0000"));
    }
    editor.setPosX(1.0);
    QCOMPARE(field(editor, "posX")->text(), QString("10.0000"));
    QCOMPARE(field(editor, "posX")->toolTip(), QString("10.0000"));
}

QTEST_MAIN(TestReadout)
#include "test_readout.moc"
