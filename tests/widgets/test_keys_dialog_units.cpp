#include "support/FailOnWarning.h"
#include "support/SplineState.h"
#include "widgets/KeysDialogFixture.h"

#include <cmath>
#include <limits>
#include <memory>

namespace {

const QString several("...");

} // namespace

/// The time fields when the axis takes another unit or another rate of frames.
class TestKeysDialogUnits : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { fixture.reset(); }

    void aResetOfTheViewShowsTheFrameOfTheKey();
    void anotherRateShowsTheFrameAtThatRate();
    void theKeyStaysWhereItIsAfterAChangeOfUnit_data();
    void theKeyStaysWhereItIsAfterAChangeOfUnit();
    void theWheelStartsFromTheNewNumber();
    void aDragOverTheTimeEndsBeforeTheUnitChanges_data();
    void aDragOverTheTimeEndsBeforeTheUnitChanges();
    void theSameRateAgainDisturbsNoDragAndNoText();
    void aTimeBegunInTheFormerUnitIsDropped_data();
    void aTimeBegunInTheFormerUnitIsDropped();
    void aValueBegunStays();
    void dotsStayDots();
    void withoutAKeyTheFieldsStayEmpty();
    void switchingUnitsOverDotsWritesNothingByTheWheel();
    void switchingThereAndBackRoundsNoKey();
    void aUnitThatTheHostWritesByItselfIsNoticedAtTheNextTouch();
    void anEndlessRateMovesNoKey();

private:
    QStringList texts() const { return {dialog->posX->text(), editor->positionX()->text()}; }

    void changeUnit(const bool& resets);
    void changeUnit(const QString& change);

    std::unique_ptr<KeysDialogFixture> fixture;
    CurveKeysDialog* dialog = nullptr;
    CurveEditor* editor = nullptr;
    LentCurve* curve = nullptr; ///< owned by the fixture
};

void TestKeysDialogUnits::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<KeysDialogFixture>();
    dialog = &fixture->dialog;
    editor = &fixture->editor;
    curve = &fixture->editCurve("n.c", {{2.0, 10.0}, {20.0, 20.0}});
    editor->setFps(25.0);
    editor->setShowTime();
    fixture->pick({{2.0, 10.0}});
}

void TestKeysDialogUnits::aResetOfTheViewShowsTheFrameOfTheKey()
{
    editor->resetViewport();
    QCOMPARE(texts(), QStringList({"50.00", "50.00"}));
    QCOMPARE(dialog->posXLabel->text(), QString("Time:"));
}

void TestKeysDialogUnits::anotherRateShowsTheFrameAtThatRate()
{
    editor->setShowFrames();
    editor->setFps(50.0);
    QCOMPARE(texts(), QStringList({"100.00", "100.00"}));
    editor->setShowTime();
    editor->setFps(10.0);
    QCOMPARE(texts(), QStringList({"2.00", "2.00"}));
}

void TestKeysDialogUnits::theKeyStaysWhereItIsAfterAChangeOfUnit_data()
{
    QTest::addColumn<bool>("resets");
    QTest::addColumn<bool>("isTwin");
    QTest::newRow("reset, dialog") << true << false;
    QTest::newRow("reset, menu bar") << true << true;
    QTest::newRow("rate, dialog") << false << false;
    QTest::newRow("rate, menu bar") << false << true;
}

void TestKeysDialogUnits::theKeyStaysWhereItIsAfterAChangeOfUnit()
{
    QFETCH(bool, resets);
    QFETCH(bool, isTwin);
    changeUnit(resets);
    CustomEditLine* const line = isTwin ? editor->positionX() : dialog->posX;
    QApplication::setActiveWindow(line->window());
    line->setFocus();
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(curve->spline.at(0)->time, 2.0);
    fixture->pressField(line);
    fixture->dragField(line, 1);
    fixture->releaseField(line);
    const double time = curve->spline.at(0)->time;
    QVERIFY2(std::fabs(time - 2.0) < 0.02, qPrintable(QString::number(time)));
}

void TestKeysDialogUnits::theWheelStartsFromTheNewNumber()
{
    editor->setShowFrames();
    fixture->pressField(dialog->posX); // at 50
    fixture->releaseField(dialog->posX);
    editor->setFps(50.0);
    fixture->turnWheel(dialog->posX, 120);
    const double time = curve->spline.at(0)->time;
    QVERIFY2(std::fabs(time - 2.0) < 0.02, qPrintable(QString::number(time)));
}

void TestKeysDialogUnits::aDragOverTheTimeEndsBeforeTheUnitChanges_data()
{
    QTest::addColumn<QString>("change");
    for (const char* const name : {"rate", "reset", "time", "frames", "switch"}) {
        QTest::newRow(name) << name;
    }
}

void TestKeysDialogUnits::aDragOverTheTimeEndsBeforeTheUnitChanges()
{
    QFETCH(QString, change);
    if (change == "rate" || change == "time") {
        editor->setShowFrames();
    }
    const SplineState before(curve->spline);
    fixture->pressField(dialog->posX);
    fixture->dragField(dialog->posX, 100);
    const SplineState dragged(curve->spline);
    changeUnit(change);
    fixture->dragField(dialog->posX, 150);
    fixture->releaseField(dialog->posX);
    QVERIFY(SplineState(curve->spline) == dragged);
    QCOMPARE(fixture->undoAll(), QStringList({"Move Control Points", "Select Control Points"}));
    QVERIFY(SplineState(curve->spline) == before);
}

/// A host may set its rate with each of its pictures.
void TestKeysDialogUnits::theSameRateAgainDisturbsNoDragAndNoText()
{
    editor->setShowFrames();
    fixture->pressField(dialog->posX);
    fixture->dragField(dialog->posX, 50);
    editor->setFps(25.0);
    fixture->dragField(dialog->posX, 100);
    fixture->releaseField(dialog->posX);
    QCOMPARE(curve->spline.at(0)->time, (50.0 + 25.5) / 25.0);
    fixture->write(dialog->posX, "2");
    editor->setFps(25.0);
    QTest::keyClicks(dialog->posX, "5");
    dialog->posX->clearFocus();
    QCOMPARE(curve->spline.at(0)->time, 1.0);
}

/// It would stand for another time.
void TestKeysDialogUnits::aTimeBegunInTheFormerUnitIsDropped_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<bool>("isTwin");
    for (const bool isTwin : {false, true}) {
        for (const char* const name : {"rate", "reset", "time", "frames", "switch"}) {
            QTest::addRow("%s, %s", name, isTwin ? "menu bar" : "dialog") << name << isTwin;
        }
    }
}

void TestKeysDialogUnits::aTimeBegunInTheFormerUnitIsDropped()
{
    QFETCH(QString, change);
    QFETCH(bool, isTwin);
    if (change == "rate" || change == "time") {
        editor->setShowFrames();
    }
    CustomEditLine* const line = isTwin ? editor->positionX() : dialog->posX;
    fixture->write(line, "7");
    changeUnit(change);
    line->clearFocus();
    QCOMPARE(curve->spline.at(0)->time, 2.0);
    line->setFocus();
    fixture->pressField(line);
    fixture->dragField(line, 1);
    fixture->releaseField(line);
    QVERIFY(std::fabs(curve->spline.at(0)->time - 2.0) < 0.1);
}

void TestKeysDialogUnits::aValueBegunStays()
{
    editor->setShowFrames();
    fixture->write(dialog->posY, "3");
    editor->setFps(50.0);
    editor->setShowTime();
    editor->resetViewport();
    QTest::keyClicks(dialog->posY, "5");
    dialog->posY->clearFocus();
    QCOMPARE(curve->spline.at(0)->value, 35.0);
}

void TestKeysDialogUnits::dotsStayDots()
{
    fixture->pick({{2.0, 10.0}, {20.0, 20.0}});
    editor->resetViewport();
    editor->setFps(30.0);
    QCOMPARE(texts(), QStringList({several, several}));
}

void TestKeysDialogUnits::withoutAKeyTheFieldsStayEmpty()
{
    editor->selectNoneKeys();
    editor->resetViewport();
    editor->setFps(30.0);
    QCOMPARE(texts(), QStringList({"", ""}));
}

/// The fields show what they read as a number, the dots as 0; the first touch puts it right.
void TestKeysDialogUnits::switchingUnitsOverDotsWritesNothingByTheWheel()
{
    fixture->addCurve("n.d", {{12.0, 30.0}, {40.0, 35.0}});
    editor->selectNodes({"n.c", "n.d"});
    fixture->selectKeys("n.c", {0});
    fixture->selectKeys("n.d", {0});
    editor->refreshEditor();
    QCOMPARE(texts(), QStringList({several, several}));
    editor->setShowFrames();
    QCOMPARE(texts(), QStringList({"0.00", "0.00"}));
    fixture->turnWheel(dialog->posX, 120);
    QCOMPARE(curve->spline.at(0)->time, 2.0);
    QCOMPARE(texts(), QStringList({several, several}));
}

/// Converted by what they show, the numbers lose digits each time.
void TestKeysDialogUnits::switchingThereAndBackRoundsNoKey()
{
    curve->spline.setTime(curve->spline.at(0), 2.005);
    editor->setFps(50.0);
    editor->refreshEditor();
    editor->setShowFrames();
    editor->setShowTime();
    editor->setShowFrames();
    fixture->pressField(dialog->posX);
    fixture->dragField(dialog->posX, 100);
    fixture->releaseField(dialog->posX);
    QCOMPARE(curve->spline.at(0)->time, (100.25 + 101.25 * 0.5) / 50.0);
}

/// Fields of the view that a host writes by itself.
void TestKeysDialogUnits::aUnitThatTheHostWritesByItselfIsNoticedAtTheNextTouch()
{
    fixture->canvas().showFrames = true;
    fixture->canvas().fps = 10.0;
    fixture->pressField(dialog->posX);
    fixture->dragField(dialog->posX, 100);
    fixture->releaseField(dialog->posX);
    QCOMPARE(curve->spline.at(0)->time, (20.0 + 10.5) / 10.0);
}

void TestKeysDialogUnits::anEndlessRateMovesNoKey()
{
    editor->setShowFrames();
    editor->setFps(std::numeric_limits<double>::infinity());
    fixture->type(dialog->posX, "5");
    QCOMPARE(curve->spline.at(0)->time, 2.0);
}

void TestKeysDialogUnits::changeUnit(const bool& resets)
{
    if (resets) {
        editor->resetViewport();
    } else {
        editor->setShowFrames();
        editor->setFps(50.0);
    }
}

void TestKeysDialogUnits::changeUnit(const QString& change)
{
    if (change == "rate") {
        editor->setFps(50.0);
    } else if (change == "reset") {
        editor->resetViewport();
    } else if (change == "time") {
        editor->setShowTime();
    } else if (change == "frames") {
        editor->setShowFrames();
    } else {
        editor->switchFramesTime();
    }
}

QTEST_MAIN(TestKeysDialogUnits)
#include "test_keys_dialog_units.moc"
