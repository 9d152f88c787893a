#include "support/FailOnWarning.h"
#include "support/HostEar.h"
#include "support/SplineState.h"
#include "widgets/KeysDialogFixture.h"

#include <memory>

namespace {

const QString changeStep("Change Control Points Values");
const QString selectStep("Select Control Points");

} // namespace

/// Typing and dragging in the fields, and what it makes of the keys.
class TestKeysDialogEditing : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { fixture.reset(); }

    void tensionTypedForTwoKeysReachesBothAndNothingElse();
    void eachFieldChangesItsOwnNumber_data();
    void eachFieldChangesItsOwnNumber();
    void keysOfTwoCurvesMoveToTheTimeTyped();
    void aTimeForSeveralKeysOfOneCurveMovesOnlyTheLonelyOneOfAnother();
    void continuityOfUnifiedTangentsStays();
    void slopesOfUnifiedAndBrokenTangents_data();
    void slopesOfUnifiedAndBrokenTangents();
    void inFramesTheTypedNumberIsAFrame();
    void whatIsTypedIsHeldWithinTheBounds();
    void aTextBegunGoesToTheKeyShownWhenTheUserTurnsToTheCanvas();
    void theTwinsOnTheMenuBarEditToo();
    void leavingDotsAloneSendsNothing();
    void returnEndsWithTheNumberShown();
    void returnOnDotsSendsZero();
    void theHostHearsOfAnEdit();
    void thePreviewFollowsAnEdit();
    void theCanvasIsRepaintedAfterAnEdit();

private:
    std::unique_ptr<KeysDialogFixture> fixture;
    CurveKeysDialog* dialog = nullptr;
    LentCurve* curve = nullptr; ///< owned by the fixture
};

void TestKeysDialogEditing::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<KeysDialogFixture>();
    dialog = &fixture->dialog;
    curve = &fixture->editThreeKeys();
    curve->spline.at(0)->tcb = {0.1, 0.2, 0.3, 0.4, 0.5};
    curve->spline.at(1)->tcb = {0.6, 0.7, 0.8, 0.9, 1.0};
}

void TestKeysDialogEditing::tensionTypedForTwoKeysReachesBothAndNothingElse()
{
    fixture->pick({{10.0, 10.0}, {20.0, 20.0}});
    SplineState expected(curve->spline);
    fixture->type(dialog->tension, "2.5");
    QCOMPARE(curve->spline.at(0)->tcb.tension, 2.5);
    QCOMPARE(curve->spline.at(1)->tcb.tension, 2.5);
    curve->spline.at(0)->tcb.tension = 0.1;
    curve->spline.at(1)->tcb.tension = 0.6;
    QVERIFY(SplineState(curve->spline) == expected);
}

void TestKeysDialogEditing::eachFieldChangesItsOwnNumber_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("number");
    // In the order of SplineState's records.
    const char* const names[] = {"posX",       "posY", "incoming", "outgoing", "tension",
                                 "continuity", "bias", "easeTo",   "easeFrom"};
    int number = 0;
    for (const char* const name : names) {
        QTest::newRow(name) << name << number++;
    }
}

void TestKeysDialogEditing::eachFieldChangesItsOwnNumber()
{
    QFETCH(QString, name);
    QFETCH(int, number);
    fixture->pick({{20.0, 20.0}});
    const PointInfo before = *curve->spline.at(1);
    const bool isTangent = name == "incoming" || name == "outgoing";
    if (isTangent) {
        dialog->nodeTypeWidgetStack->setCurrentIndex(1);
    }
    fixture->type(dialog->findChild<CustomEditLine*>(name), "0.25");
    PointInfo* const key = isTangent || name != "posX" ? curve->spline.at(1) : curve->spline.at(0);
    SplineState::Bits expected = SplineState::bitsOf(before);
    const double typed = 0.25;
    std::memcpy(&expected[static_cast<std::size_t>(number)], &typed, sizeof typed);
    QCOMPARE(SplineState::bitsOf(*key), expected);
    QCOMPARE(fixture->undoSteps(), QStringList({changeStep, selectStep}));
    fixture->editor.getCmdManager()->undo();
    QCOMPARE(SplineState::bitsOf(*curve->spline.at(1)), SplineState::bitsOf(before));
}

void TestKeysDialogEditing::keysOfTwoCurvesMoveToTheTimeTyped()
{
    LentCurve& other = fixture->addCurve("n.d", {{12.0, 30.0}, {40.0, 35.0}});
    fixture->editor.selectNodes(QStringList({"n.c", "n.d"}));
    fixture->pick({{10.0, 10.0}, {12.0, 30.0}});
    QCOMPARE(dialog->posX->text(), QString("..."));
    fixture->type(dialog->posX, "15");
    QCOMPARE(curve->spline.at(0)->time, 15.0);
    QCOMPARE(other.spline.at(0)->time, 15.0);
    QCOMPARE(curve->spline.at(0)->value, 10.0);
    QCOMPARE(other.spline.at(0)->value, 30.0);
    fixture->editor.getCmdManager()->undo();
    QCOMPARE(curve->spline.at(0)->time, 10.0);
    QCOMPARE(other.spline.at(0)->time, 12.0);
}

void TestKeysDialogEditing::aTimeForSeveralKeysOfOneCurveMovesOnlyTheLonelyOneOfAnother()
{
    LentCurve& other = fixture->addCurve("n.d", {{12.0, 30.0}, {40.0, 35.0}});
    fixture->editor.selectNodes(QStringList({"n.c", "n.d"}));
    fixture->pick({{10.0, 10.0}, {20.0, 20.0}, {12.0, 30.0}});
    dialog->valueChangedTyped(15.0, dialog->posX);
    QCOMPARE(curve->spline.at(0)->time, 10.0);
    QCOMPARE(curve->spline.at(1)->time, 20.0);
    QCOMPARE(other.spline.at(0)->time, 15.0);
}

void TestKeysDialogEditing::continuityOfUnifiedTangentsStays()
{
    fixture->pick({{10.0, 10.0}});
    fixture->editor.unifyTangents();
    const SplineState before(curve->spline);
    fixture->type(dialog->continuity, "0.5");
    QVERIFY(SplineState(curve->spline) == before);
    QCOMPARE(dialog->continuity->text(), QString("0.00"));
    QCOMPARE(fixture->undoSteps(), QStringList({changeStep, selectStep}));
}

void TestKeysDialogEditing::slopesOfUnifiedAndBrokenTangents_data()
{
    QTest::addColumn<bool>("isIncoming");
    QTest::addColumn<bool>("firstUnified");
    QTest::addColumn<bool>("secondUnified");
    QTest::addColumn<QList<double>>("slopes"); // left and right of both keys
    const auto row = [](const char* name, bool isIncoming, bool first, bool second,
                        const QList<double>& slopes) {
        QTest::newRow(name) << isIncoming << first << second << slopes;
    };
    row("incoming, broken", true, false, false, {5, 2, 5, 4});
    row("outgoing, broken", false, false, false, {1, 5, 3, 5});
    row("incoming, unified", true, true, true, {5, 5, 5, 5});
    row("outgoing, unified", false, true, true, {5, 5, 5, 5});
    row("incoming, a unified one shown", true, true, false, {5, 5, 5, 4});
    row("outgoing, a unified one shown", false, true, false, {5, 5, 3, 5});
    row("incoming, a broken one shown", true, false, true, {5, 2, 5, 5});
    row("outgoing, a broken one shown", false, false, true, {1, 5, 5, 5});
}

void TestKeysDialogEditing::slopesOfUnifiedAndBrokenTangents()
{
    QFETCH(bool, isIncoming);
    QFETCH(bool, firstUnified);
    QFETCH(bool, secondUnified);
    QFETCH(QList<double>, slopes);
    PointInfo& first = *curve->spline.at(0);
    PointInfo& second = *curve->spline.at(1);
    first.type = second.type = zk_spline::bezier;
    first.bezier = firstUnified ? PointInfo::BezierData{1, 1} : PointInfo::BezierData{1, 2};
    second.bezier = secondUnified ? PointInfo::BezierData{3, 3} : PointInfo::BezierData{3, 4};
    first.unifiedTangents = firstUnified;
    second.unifiedTangents = secondUnified;
    fixture->selectKeys("n.c", {0, 1});
    fixture->editor.refreshEditor();
    fixture->type(isIncoming ? dialog->incoming : dialog->outgoing, "5");
    QCOMPARE(QList<double>({first.bezier.tangentLeft, first.bezier.tangentRight,
                            second.bezier.tangentLeft, second.bezier.tangentRight}),
             slopes);
}

void TestKeysDialogEditing::inFramesTheTypedNumberIsAFrame()
{
    fixture->editCurve("n.f", {{2.0, 10.0}, {20.0, 20.0}});
    fixture->editor.setFps(25.0);
    fixture->editor.setShowFrames();
    fixture->pick({{2.0, 10.0}});
    QCOMPARE(dialog->posX->text(), QString("50.00"));
    fixture->type(dialog->posX, "25");
    QCOMPARE(fixture->curves.at("n.f")->spline.at(0)->time, 1.0);
    QCOMPARE(dialog->posX->text(), QString("25.00"));
    QCOMPARE(fixture->editor.positionX()->text(), QString("25.00"));
}

void TestKeysDialogEditing::whatIsTypedIsHeldWithinTheBounds()
{
    fixture->pick({{10.0, 10.0}});
    fixture->type(dialog->easeTo, "7");
    fixture->type(dialog->easeFrom, "-7");
    fixture->type(dialog->bias, "70");
    fixture->type(dialog->tension, "-70");
    const PointInfo::TcbData& tcb = curve->spline.at(0)->tcb;
    QCOMPARE(tcb.easeTo, 1.0);
    QCOMPARE(tcb.easeFrom, 0.0);
    QCOMPARE(tcb.bias, 10.0);
    QCOMPARE(tcb.tension, -10.0);
}

void TestKeysDialogEditing::aTextBegunGoesToTheKeyShownWhenTheUserTurnsToTheCanvas()
{
    fixture->pick({{10.0, 10.0}});
    fixture->write(dialog->posY, "35");
    QApplication::setActiveWindow(&fixture->editor);
    fixture->pick({{20.0, 20.0}});
    QCOMPARE(curve->spline.at(0)->value, 35.0);
    QCOMPARE(curve->spline.at(1)->value, 20.0);
    QCOMPARE(dialog->posY->text(), QString("20.00"));
    QCOMPARE(fixture->undoSteps(), QStringList({selectStep, changeStep, selectStep}));
}

void TestKeysDialogEditing::theTwinsOnTheMenuBarEditToo()
{
    fixture->pick({{10.0, 10.0}});
    fixture->type(fixture->editor.positionX(), "12");
    QCOMPARE(curve->spline.at(0)->time, 12.0);
    QCOMPARE(dialog->posX->text(), QString("12.00"));
    fixture->type(fixture->editor.positionY(), "13");
    QCOMPARE(curve->spline.at(0)->value, 13.0);
    QCOMPARE(dialog->posY->text(), QString("13.00"));
    fixture->type(dialog->posY, "14");
    QCOMPARE(fixture->editor.positionY()->text(), QString("14.00"));
    QCOMPARE(fixture->undoSteps(), QStringList({changeStep, changeStep, changeStep, selectStep}));
}

void TestKeysDialogEditing::leavingDotsAloneSendsNothing()
{
    fixture->pick({{10.0, 10.0}, {20.0, 20.0}});
    const SplineState before(curve->spline);
    QApplication::setActiveWindow(dialog);
    for (CustomEditLine* const line : {dialog->tension, dialog->posY, dialog->easeTo}) {
        QCOMPARE(line->text(), QString("..."));
        line->setFocus();
        line->clearFocus();
        fixture->type(line, "...");
    }
    QVERIFY(SplineState(curve->spline) == before);
}

/// Return sends what the field holds after it has been put in form.
void TestKeysDialogEditing::returnEndsWithTheNumberShown()
{
    fixture->pick({{10.0, 10.0}});
    fixture->write(dialog->posY, "12.346");
    QTest::keyClick(dialog->posY, Qt::Key_Return);
    QCOMPARE(dialog->posY->text(), QString("12.35"));
    QCOMPARE(curve->spline.at(0)->value, 12.35);
    QVERIFY(dialog->posY->hasFocus());
}

/// As any text that is no number.
void TestKeysDialogEditing::returnOnDotsSendsZero()
{
    fixture->pick({{10.0, 10.0}, {20.0, 20.0}});
    QApplication::setActiveWindow(dialog);
    dialog->tension->setFocus();
    QCOMPARE(dialog->tension->text(), QString("..."));
    QTest::keyClick(dialog->tension, Qt::Key_Return);
    QCOMPARE(curve->spline.at(0)->tcb.tension, 0.0);
    QCOMPARE(curve->spline.at(1)->tcb.tension, 0.0);
    QCOMPARE(fixture->undoSteps().first(), changeStep);
}

void TestKeysDialogEditing::theHostHearsOfAnEdit()
{
    fixture->pick({{10.0, 10.0}});
    HostEar ear(fixture->editor);
    fixture->type(dialog->posY, "12");
    const QStringList reports = ear.take();
    QVERIFY(!reports.isEmpty());
    QCOMPARE(reports.count("n|c"), reports.size());
}

void TestKeysDialogEditing::thePreviewFollowsAnEdit()
{
    fixture->pick({{10.0, 10.0}});
    const QImage before = dialog->tcbCurve->grab().toImage();
    fixture->type(dialog->tension, "-3");
    QVERIFY(dialog->tcbCurve->grab().toImage() != before);
}

void TestKeysDialogEditing::theCanvasIsRepaintedAfterAnEdit()
{
    fixture->pick({{10.0, 10.0}});
    QCoreApplication::processEvents();
    const QImage before = fixture->canvas().grab().toImage();
    fixture->type(dialog->posY, "30");
    QVERIFY(fixture->canvas().grab().toImage() != before);
}

QTEST_MAIN(TestKeysDialogEditing)
#include "test_keys_dialog_editing.moc"
