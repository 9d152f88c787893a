#include "support/FailOnWarning.h"
#include "support/HostEar.h"
#include "support/SplineState.h"
#include "widgets/KeysDialogFixture.h"

#include <memory>

namespace {

const QString changeStep("Change Control Points Values");
const QString moveStep("Move Control Points");
const QString selectStep("Select Control Points");
const QString typeStep("Set Control Points Type");

} // namespace

/// What the dialog leaves in the history: drags, the wheel, the buttons and the lists.
class TestKeysDialogSteps : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { fixture.reset(); }

    void aDragOnTensionIsOneStepBackToTheValueBeforeThePress();
    void aDragOnThePositionIsAMove_data();
    void aDragOnThePositionIsAMove();
    void aDragPastTheNeighbourKeepsTheKey();
    void aDragBackToWhereItBeganIsNoStep();
    void theHostFollowsADragLive();
    void keysSelectedUnderADragOverAFieldEndIt_data();
    void keysSelectedUnderADragOverAFieldEndIt();
    void returnDuringADragEndsTheStepAndTheReleaseAddsNone();
    void whatIsTypedUnderAHeldPressEndsTheDrag();
    void aPositionTypedUnderAHeldPressIsAStepBehindTheDrag();
    void aPressOfTheOtherKindThatNeverEndedIsAStepOfItsOwn();
    void aTurnOfTheWheelIsAStepOfItsOwn();
    void aTurnOfTheWheelDuringADragBelongsToIt();
    void aTurnOfTheWheelOverAnotherFieldDuringADragIsAStepOfItsOwn();
    void aStepToANeighbourIsAlwaysMade();
    void undoOfANeighbourGivesTheFormerKeyBack();
    void theListOfTypesSetsTheTypeOfAllSelectedKeys_data();
    void theListOfTypesSetsTheTypeOfAllSelectedKeys();
    void oneTypeForAMixOpensItsFields();
    void anIndexOutsideTheListDoesNothing();
    void theBehavioursOfTheEndsAreSetByTheirLists();
    void behavioursOutsideTheListsAreIgnored();
    void withUndoOffEditsStillWork();

private:
    std::unique_ptr<KeysDialogFixture> fixture;
    CurveKeysDialog* dialog = nullptr;
    LentCurve* curve = nullptr; ///< owned by the fixture
};

void TestKeysDialogSteps::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<KeysDialogFixture>();
    dialog = &fixture->dialog;
    curve = &fixture->editThreeKeys(zk_spline::bezier);
}

void TestKeysDialogSteps::aDragOnTensionIsOneStepBackToTheValueBeforeThePress()
{
    curve->spline.at(0)->tcb.tension = 0.125;
    fixture->pick({{10.0, 10.0}});
    fixture->pressField(dialog->tension);
    for (int pixels = 10; pixels <= 100; pixels += 10) {
        fixture->dragField(dialog->tension, pixels);
        QVERIFY(curve->spline.at(0)->tcb.tension > 0.125);
    }
    fixture->releaseField(dialog->tension);
    QCOMPARE(fixture->undoSteps(), QStringList({changeStep, selectStep}));
    fixture->editor.getCmdManager()->undo();
    QCOMPARE(curve->spline.at(0)->tcb.tension, 0.125);
    QCOMPARE(dialog->tension->text(), QString("0.13"));
}

void TestKeysDialogSteps::aDragOnThePositionIsAMove_data()
{
    QTest::addColumn<bool>("isTwin");
    QTest::addColumn<bool>("isTime");
    QTest::newRow("time") << false << true;
    QTest::newRow("value") << false << false;
    QTest::newRow("time on the menu bar") << true << true;
    QTest::newRow("value on the menu bar") << true << false;
}

void TestKeysDialogSteps::aDragOnThePositionIsAMove()
{
    QFETCH(bool, isTwin);
    QFETCH(bool, isTime);
    fixture->pick({{10.0, 10.0}});
    CustomEditLine* const ofDialog = isTime ? dialog->posX : dialog->posY;
    CustomEditLine* const ofEditor =
        isTime ? fixture->editor.positionX() : fixture->editor.positionY();
    CustomEditLine* const line = isTwin ? ofEditor : ofDialog;
    fixture->pressField(line);
    fixture->dragField(line, 100);
    QCOMPARE(ofDialog->text(), QString("15.50"));
    QCOMPARE(ofEditor->text(), QString("15.50"));
    fixture->releaseField(line);
    const PointInfo& key = *curve->spline.at(0);
    QCOMPARE(isTime ? key.time : key.value, 15.5);
    QCOMPARE(fixture->undoSteps(), QStringList({moveStep, selectStep}));
}

void TestKeysDialogSteps::aDragPastTheNeighbourKeepsTheKey()
{
    fixture->pick({{10.0, 10.0}});
    PointInfo* const key = curve->spline.at(0);
    fixture->pressField(dialog->posX);
    fixture->dragField(dialog->posX, 300);
    fixture->releaseField(dialog->posX);
    QCOMPARE(curve->spline.at(1), key);
    QCOMPARE(dialog->node->text(), QString("1"));
    fixture->editor.getCmdManager()->undo();
    QCOMPARE(curve->spline.at(0), key);
    QCOMPARE(key->time, 10.0);
    QCOMPARE(dialog->node->text(), QString("0"));
}

void TestKeysDialogSteps::aDragBackToWhereItBeganIsNoStep()
{
    fixture->pick({{10.0, 10.0}});
    fixture->pressField(dialog->tension);
    fixture->dragField(dialog->tension, 50);
    fixture->dragField(dialog->tension, 0);
    fixture->releaseField(dialog->tension);
    fixture->pressField(dialog->posX);
    fixture->releaseField(dialog->posX);
    QCOMPARE(fixture->undoSteps(), QStringList(selectStep));
}

void TestKeysDialogSteps::theHostFollowsADragLive()
{
    fixture->pick({{10.0, 10.0}});
    fixture->pressField(dialog->posY);
    HostEar ear(fixture->editor);
    fixture->dragField(dialog->posY, 50);
    QVERIFY(ear.take().contains("n|c"));
    fixture->releaseField(dialog->posY);
}

void TestKeysDialogSteps::keysSelectedUnderADragOverAFieldEndIt_data()
{
    QTest::addColumn<bool>("isMove");
    QTest::addColumn<bool>("refreshes");
    QTest::newRow("tension") << false << true;
    QTest::newRow("value") << true << true;
    QTest::newRow("tension, unnoticed at first") << false << false;
    QTest::newRow("value, unnoticed at first") << true << false;
}

/// The host, or the user's other hand, selects while the press is held.
void TestKeysDialogSteps::keysSelectedUnderADragOverAFieldEndIt()
{
    QFETCH(bool, isMove);
    QFETCH(bool, refreshes);
    const SplineState before(curve->spline);
    fixture->pick({{10.0, 10.0}});
    CustomEditLine* const line = isMove ? dialog->posY : dialog->tension;
    fixture->pressField(line);
    fixture->dragField(line, 50);
    const SplineState dragged(curve->spline);
    fixture->selectKeys("n.c", {0, 1});
    if (refreshes) {
        fixture->editor.refreshEditor();
    }
    fixture->dragField(line, 80);
    fixture->dragField(line, 100);
    fixture->releaseField(line);
    QVERIFY(SplineState(curve->spline) == dragged);
    QCOMPARE(fixture->undoSteps(), QStringList({isMove ? moveStep : changeStep, selectStep}));
    fixture->undoAll();
    QVERIFY(SplineState(curve->spline) == before);
    while (fixture->editor.getCmdManager()->redo()) {
    }
    QVERIFY(SplineState(curve->spline) == dragged);
}

void TestKeysDialogSteps::returnDuringADragEndsTheStepAndTheReleaseAddsNone()
{
    fixture->pick({{10.0, 10.0}});
    QApplication::setActiveWindow(dialog);
    dialog->tension->setFocus();
    fixture->pressField(dialog->tension);
    fixture->dragField(dialog->tension, 100);
    QTest::keyClick(dialog->tension, Qt::Key_Return);
    fixture->releaseField(dialog->tension);
    QCOMPARE(fixture->undoSteps(), QStringList({changeStep, selectStep}));
}

void TestKeysDialogSteps::whatIsTypedUnderAHeldPressEndsTheDrag()
{
    fixture->pick({{10.0, 10.0}});
    fixture->pressField(dialog->tension);
    fixture->dragField(dialog->tension, 100);
    fixture->write(dialog->tension, "3");
    QTest::keyClick(dialog->tension, Qt::Key_Return);
    fixture->dragField(dialog->tension, 200);
    fixture->dragField(dialog->tension, 300);
    fixture->releaseField(dialog->tension);
    QCOMPARE(curve->spline.at(0)->tcb.tension, 3.0);
    QCOMPARE(fixture->undoSteps(), QStringList({changeStep, selectStep}));
}

void TestKeysDialogSteps::aPositionTypedUnderAHeldPressIsAStepBehindTheDrag()
{
    fixture->pick({{10.0, 10.0}});
    fixture->pressField(dialog->posY);
    fixture->dragField(dialog->posY, 100);
    fixture->write(dialog->posY, "30");
    QTest::keyClick(dialog->posY, Qt::Key_Return);
    fixture->releaseField(dialog->posY);
    QCOMPARE(fixture->undoSteps(), QStringList({changeStep, moveStep, selectStep}));
    fixture->editor.getCmdManager()->undo();
    QCOMPARE(curve->spline.at(0)->value, 15.5);
    fixture->editor.getCmdManager()->undo();
    QCOMPARE(curve->spline.at(0)->value, 10.0);
}

void TestKeysDialogSteps::aPressOfTheOtherKindThatNeverEndedIsAStepOfItsOwn()
{
    fixture->pick({{10.0, 10.0}});
    dialog->startChangePoints();
    dialog->valueChanged(2.0, dialog->tension);
    dialog->startMovePoints();
    dialog->valueChanged(3.0, dialog->posY);
    dialog->endMovePoints();
    dialog->endChangePoints();
    QCOMPARE(fixture->undoSteps(), QStringList({moveStep, changeStep, selectStep}));
}

/// The base of the wheel is the value at the last press, and away from the user lowers it.
void TestKeysDialogSteps::aTurnOfTheWheelIsAStepOfItsOwn()
{
    curve->spline.at(0)->tcb.tension = 3.0;
    fixture->pick({{10.0, 10.0}});
    fixture->pressField(dialog->tension);
    fixture->releaseField(dialog->tension);
    fixture->turnWheel(dialog->tension, 120);
    const double lowered = 3.0 - 4.0 * static_cast<double>(0.005F);
    QCOMPARE(curve->spline.at(0)->tcb.tension, lowered);
    // Further turns give the same value, hence no further step.
    fixture->turnWheel(dialog->tension, 120);
    QCOMPARE(curve->spline.at(0)->tcb.tension, lowered);
    QCOMPARE(fixture->undoSteps(), QStringList({changeStep, selectStep}));
    fixture->editor.getCmdManager()->undo();
    QCOMPARE(curve->spline.at(0)->tcb.tension, 3.0);
}

void TestKeysDialogSteps::aTurnOfTheWheelDuringADragBelongsToIt()
{
    fixture->pick({{10.0, 10.0}});
    fixture->pressField(dialog->posY);
    fixture->turnWheel(dialog->posY, 120);
    fixture->dragField(dialog->posY, 50);
    fixture->releaseField(dialog->posY);
    QCOMPARE(fixture->undoSteps(), QStringList({moveStep, selectStep}));
}

void TestKeysDialogSteps::aTurnOfTheWheelOverAnotherFieldDuringADragIsAStepOfItsOwn()
{
    fixture->pick({{10.0, 10.0}});
    LentCurve& lent = *fixture->curves.at("n.c");
    const double before = lent.spline.at(0)->tcb.tension;
    fixture->pressField(dialog->posY);
    fixture->dragField(dialog->posY, 50);
    fixture->turnWheel(dialog->tension, 120);
    fixture->releaseField(dialog->posY);
    QVERIFY(lent.spline.at(0)->tcb.tension != before);
    fixture->undoAll();
    QCOMPARE(lent.spline.at(0)->tcb.tension, before);
    QCOMPARE(lent.spline.at(0)->value, 10.0);
}

void TestKeysDialogSteps::aStepToANeighbourIsAlwaysMade()
{
    LentCurve& lonely = fixture->editCurve("n.l", {{10.0, 30.0}});
    fixture->pick({{10.0, 30.0}});
    const int before = static_cast<int>(fixture->undoSteps().size());
    QTest::mouseClick(dialog->nextNode, Qt::LeftButton);
    QTest::mouseClick(dialog->prevNode, Qt::LeftButton);
    QCOMPARE(fixture->selectionOf("n.l").currentPoint, lonely.spline.at(0));
    QCOMPARE(fixture->undoSteps().size(), before + 2);
}

void TestKeysDialogSteps::undoOfANeighbourGivesTheFormerKeyBack()
{
    fixture->pick({{10.0, 10.0}});
    QTest::mouseClick(dialog->nextNode, Qt::LeftButton);
    QCOMPARE(fixture->undoSteps(), QStringList({selectStep, selectStep}));
    fixture->editor.getCmdManager()->undo();
    QCOMPARE(dialog->node->text(), QString("0"));
    fixture->editor.getCmdManager()->redo();
    QCOMPARE(dialog->node->text(), QString("1"));
}

void TestKeysDialogSteps::theListOfTypesSetsTheTypeOfAllSelectedKeys_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("type");
    QTest::newRow("Bezier") << 1 << int(zk_spline::bezier);
    QTest::newRow("linear") << 2 << int(zk_spline::linear);
    QTest::newRow("stepped") << 3 << int(zk_spline::stepped);
}

void TestKeysDialogSteps::theListOfTypesSetsTheTypeOfAllSelectedKeys()
{
    QFETCH(int, index);
    fixture->pick({{10.0, 10.0}, {20.0, 20.0}});
    fixture->choose(dialog->nodeTypeCombo, index);
    QTEST(int(curve->spline.at(0)->type), "type");
    QTEST(int(curve->spline.at(1)->type), "type");
    QCOMPARE(curve->spline.at(2)->type, zk_spline::bezier);
    QCOMPARE(dialog->nodeTypeCombo->currentIndex(), index);
    QCOMPARE(dialog->nodeTypeWidgetStack->currentIndex(), index == 1 ? 1 : 0);
    QCOMPARE(fixture->undoSteps(), QStringList({typeStep, selectStep, selectStep}));
}

void TestKeysDialogSteps::oneTypeForAMixOpensItsFields()
{
    fixture->pick({{20.0, 20.0}, {30.0, 5.0}});
    QVERIFY(!dialog->tension->isEnabled());
    fixture->choose(dialog->nodeTypeCombo, 0);
    QVERIFY(dialog->tension->isEnabled());
}

void TestKeysDialogSteps::anIndexOutsideTheListDoesNothing()
{
    fixture->pick({{10.0, 10.0}});
    QSignalSpy changed(dialog, SIGNAL(nodeTcbChanged()));
    dialog->changeNodeType(-1);
    dialog->changeNodeType(4);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(curve->spline.at(0)->type, zk_spline::tcb);
}

void TestKeysDialogSteps::theBehavioursOfTheEndsAreSetByTheirLists()
{
    fixture->choose(dialog->nodeFirst, 0);
    QCOMPARE(curve->spline.firstNodeType(), SplineBase::zero);
    for (int index = 0; index < 5; ++index) {
        fixture->choose(dialog->nodeLast, index);
        QCOMPARE(int(curve->spline.lastNodeType()), index);
        QCOMPARE(dialog->nodeLast->currentIndex(), index);
    }
    fixture->undoAll();
    QCOMPARE(dialog->nodeFirst->currentIndex(), 1);
    QCOMPARE(dialog->nodeLast->currentIndex(), 1);
}

void TestKeysDialogSteps::behavioursOutsideTheListsAreIgnored()
{
    for (const int index : {-1, 2, 3, 4, 5}) {
        fixture->editor.changeNodeFirstType(index);
    }
    fixture->editor.changeNodeLastType(-1);
    fixture->editor.changeNodeLastType(5);
    QCOMPARE(curve->spline.firstNodeType(), SplineBase::constant);
    QCOMPARE(curve->spline.lastNodeType(), SplineBase::constant);
    QVERIFY(fixture->undoSteps().isEmpty());
}

void TestKeysDialogSteps::withUndoOffEditsStillWork()
{
    fixture->pick({{10.0, 10.0}});
    fixture->editor.setEnableUndo(false);
    fixture->type(dialog->posY, "12");
    QTest::mouseClick(dialog->nextNode, Qt::LeftButton);
    QCOMPARE(curve->spline.at(0)->value, 12.0);
    QCOMPARE(dialog->node->text(), QString("1"));
    QVERIFY(fixture->undoSteps().isEmpty());
}

QTEST_MAIN(TestKeysDialogSteps)
#include "test_keys_dialog_steps.moc"

#include <QSignalSpy>
