#include "editor/EditorParts.h"
#include "support/DialogUser.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "widgets/CustomEditLine.h"
#include "widgets/PanDialog.h"

#include <QLabel>

namespace {

const QList<double> times{0.0, 1.5, 65.5, 7200.0, -0.5, -1.25, -65.5};

} // namespace

/// Read-outs, fields and dialogs at the rates that are in use, before time 0 as well.
class TestFrameRates : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void timecodesAndFrames_data();
    void timecodesAndFrames();

    void secondsAreTheSameAtEachRate_data() { rates(); }

    void secondsAreTheSameAtEachRate();

    void thePositionFieldFollowsUnitAndRate_data() { rates(); }

    void thePositionFieldFollowsUnitAndRate();

    void aFrameOfTheTimeLineIsATime_data() { rates(); }

    void aFrameOfTheTimeLineIsATime();

    void aPanBySoManyFramesIsOneSecond_data() { rates(); }

    void aPanBySoManyFramesIsOneSecond();

private:
    static void rates();
};

/// Minutes and seconds are cut toward zero, the frame counts upward from the second below; the
/// width of each is that of the rate's frames.
void TestFrameRates::timecodesAndFrames_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<QStringList>("timecodes");
    QTest::addColumn<QStringList>("frames");
    const auto row = [](const char* name, const double& rate, const QStringList& timecodes,
                        const QStringList& frames) {
        QTest::newRow(name) << rate << timecodes << frames;
    };
    row("1", 1.0,
        {"TC 0:0:0", "TC 0:1:0", "TC 1:5:0", "TC 120:0:0", "TC 0:0:0", "TC 0:-1:0", "TC -1:-5:0"},
        {"F 0.00", "F 1.50", "F 65.50", "F 7200.00", "F -0.50", "F -1.25", "F -65.50"});
    row("10", 10.0,
        {"TC 0:0:0", "TC 0:1:5", "TC 1:5:5", "TC 120:0:0", "TC 0:0:5", "TC 0:-1:7", "TC -1:-5:5"},
        {"F 0.00", "F 15.00", "F 655.00", "F 72000.00", "F -5.00", "F -12.50", "F -655.00"});
    row("24", 24.0,
        {"TC 00:00:00", "TC 00:01:12", "TC 01:05:12", "TC 120:00:00", "TC 00:00:12", "TC 00:-1:18",
         "TC -1:-5:12"},
        {"F 0.00", "F 36.00", "F 1572.00", "F 172800.00", "F -12.00", "F -30.00", "F -1572.00"});
    row("25", 25.0,
        {"TC 00:00:00", "TC 00:01:12", "TC 01:05:12", "TC 120:00:00", "TC 00:00:12", "TC 00:-1:18",
         "TC -1:-5:12"},
        {"F 0.00", "F 37.50", "F 1637.50", "F 180000.00", "F -12.50", "F -31.25", "F -1637.50"});
    row("29.97", 29.97,
        {"TC 00:00:00", "TC 00:01:14", "TC 01:05:14", "TC 120:00:00", "TC 00:00:14", "TC 00:-1:22",
         "TC -1:-5:14"},
        {"F 0.00", "F 44.95", "F 1963.03", "F 215784.00", "F -14.98", "F -37.46", "F -1963.03"});
    row("30", 30.0,
        {"TC 00:00:00", "TC 00:01:15", "TC 01:05:15", "TC 120:00:00", "TC 00:00:15", "TC 00:-1:22",
         "TC -1:-5:15"},
        {"F 0.00", "F 45.00", "F 1965.00", "F 216000.00", "F -15.00", "F -37.50", "F -1965.00"});
    row("60", 60.0,
        {"TC 00:00:00", "TC 00:01:30", "TC 01:05:30", "TC 120:00:00", "TC 00:00:30", "TC 00:-1:45",
         "TC -1:-5:30"},
        {"F 0.00", "F 90.00", "F 3930.00", "F 432000.00", "F -30.00", "F -75.00", "F -3930.00"});
    row("1000", 1000.0,
        {"TC 000:000:000", "TC 000:001:500", "TC 001:005:500", "TC 120:000:000", "TC 000:000:500",
         "TC 000:-01:750", "TC -01:-05:500"},
        {"F 0.00", "F 1500.00", "F 65500.00", "F 7200000.00", "F -500.00", "F -1250.00",
         "F -65500.00"});
}

void TestFrameRates::timecodesAndFrames()
{
    QFETCH(double, rate);
    CurveEditor editor(nullptr, QString());
    editor.setFps(rate);
    QStringList timecodes;
    QStringList frames;
    for (const double& time : times) {
        editor.setFuncPosInfo(time, 0.0, 0.0);
        timecodes.append(readout(editor, "timecodeLabel"));
        frames.append(readout(editor, "frameLabel"));
    }
    QTEST(timecodes, "timecodes");
    QTEST(frames, "frames");
}

void TestFrameRates::secondsAreTheSameAtEachRate()
{
    QFETCH(double, rate);
    CurveEditor editor(nullptr, QString());
    editor.setFps(rate);
    editor.setShowTime();
    QStringList seconds;
    for (const double& time : times) {
        editor.setFuncPosInfo(time, 0.0, 0.0);
        seconds.append(readout(editor, "frameLabel"));
    }
    QCOMPARE(seconds, QStringList({"t 0.00", "t 1.50", "t 65.50", "t 7200.00", "t -0.50", "t -1.25",
                                   "t -65.50"}));
}

void TestFrameRates::thePositionFieldFollowsUnitAndRate()
{
    QFETCH(double, rate);
    CurveEditor editor(nullptr, QString());
    editor.getFunctionEditor()->canvas().updateCanvas(); // no key stands in the field
    editor.setFps(rate);
    const auto* const field = editor.mainMenu->findChild<CustomEditLine*>("posX");
    for (const double& time : times) {
        editor.setShowFrames();
        editor.setPosX(time);
        QCOMPARE(field->text(), QString::number(time * rate, 'f', 2));
        editor.setShowTime();
        const double shown = QString::number(time * rate, 'f', 2).toDouble();
        QCOMPARE(field->text(), QString::number(shown / rate, 'f', 2));
        editor.setPosX(time);
        QCOMPARE(field->text(), QString::number(time, 'f', 2));
    }
}

void TestFrameRates::aFrameOfTheTimeLineIsATime()
{
    QFETCH(double, rate);
    EditorFixture fixture;
    fixture.editor.setFps(rate);
    for (const int frame : {0, 1, 50, -50}) {
        fixture.editor.setTimeLine(ZK_INT(frame));
        QCOMPARE(fixture.canvas().timeLine, frame / rate);
        fixture.editor.centerTimeline();
        fixture.paint();
    }
}

void TestFrameRates::aPanBySoManyFramesIsOneSecond()
{
    QFETCH(double, rate);
    EditorFixture fixture;
    LentCurve& curve = fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    fixture.selectKeys("n.c", {0});
    fixture.editor.setFps(rate);
    DialogUser<PanDialog> user([&rate](PanDialog& dialog) {
        dialog.panX->setValue(-rate);
        click(dialog.allDonePan);
    });
    fixture.editor.setPanSelection();
    QVERIFY(user.hasActed());
    QCOMPARE(curve.spline.at(0)->time, 9.0);
}

void TestFrameRates::rates()
{
    QTest::addColumn<double>("rate");
    for (const double rate : {1.0, 10.0, 24.0, 25.0, 29.97, 30.0, 60.0, 1000.0}) {
        QTest::newRow(qPrintable(QString::number(rate))) << rate;
    }
}

QTEST_MAIN(TestFrameRates)
#include "test_frame_rates.moc"
