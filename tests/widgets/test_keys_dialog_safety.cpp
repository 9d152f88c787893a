#include "support/FailOnWarning.h"
#include "support/SplineState.h"
#include "widgets/KeysDialogFixture.h"

#include <cmath>
#include <limits>
#include <memory>

/// Courses of events in which a key, a curve or the whole editor goes while it is shown.
class TestKeysDialogSafety : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { fixture.reset(); }

    void withoutASelectionNothingIsChanged();
    void aFieldThatIsNoneOfItsOwnChangesNothing();
    void anEditorCanDieDuringADragOverAField_data();
    void anEditorCanDieDuringADragOverAField();
    void aRemovedCurveIsNoLongerEdited();
    void aDestroyedSplineIsNoLongerEdited_data();
    void aDestroyedSplineIsNoLongerEdited();
    void aFreedKeyIsNotShownAndNotEdited();
    void aKeyThatAnotherEditorTakesBackUnderADragIsNotWritten();
    void ofSeveralKeysTheLivingOnesAreShown();
    void undoUnderADragDropsTheKeyFromIt();
    void theHostCanRemoveTheCurveInItsReport();
    void keysUnderAnExpressionAreNeitherShownNorWritten();
    void aKeyOfAnotherCurveInASelectionIsNotWritten();
    void aRateOfZeroFramesLosesNoKey();
    void numbersWithoutEndAreNotWritten();
    void aPressCutOffByClosingTheFieldLeavesNoOpenStep();
    void escapeDuringADragEndsIt();
    void aTextBegunForOneKeyIsNotSentToAnother();
    void aTextBegunForAKeyThatUndoTakesAwayIsNotSent();
    void theHostCanRemoveTheShownKeyWhileItsFieldIsClosed();
    void aTextBegunInAFieldThatIsClosedIsNotSent();
    void shiftPressedInAFieldOfTheMenuBarKeepsWhatWasTyped();

private:
    std::unique_ptr<KeysDialogFixture> fixture;
    CurveKeysDialog* dialog = nullptr;
    LentCurve* curve = nullptr; ///< owned by the fixture
};

void TestKeysDialogSafety::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<KeysDialogFixture>();
    dialog = &fixture->dialog;
    curve = &fixture->editThreeKeys();
}

void TestKeysDialogSafety::withoutASelectionNothingIsChanged()
{
    const SplineState before(curve->spline);
    QSignalSpy changed(dialog, SIGNAL(nodeTcbChanged()));
    for (CustomEditLine* const line : dialog->findChildren<CustomEditLine*>()) {
        dialog->valueChanged(7.0, line);
        dialog->valueChangedTyped(7.0, line);
    }
    dialog->clickedNext();
    dialog->clickedPrev();
    QVERIFY(SplineState(curve->spline) == before);
    QCOMPARE(changed.count(), 0);
    QVERIFY(fixture->undoSteps().isEmpty());
}

void TestKeysDialogSafety::aFieldThatIsNoneOfItsOwnChangesNothing()
{
    fixture->pick({{10.0, 10.0}});
    const SplineState before(curve->spline);
    CustomEditLine foreign;
    const QList<CustomEditLine*> others{&foreign, dialog->node, nullptr};
    for (CustomEditLine* const line : others) {
        dialog->valueChanged(7.0, line);
    }
    QVERIFY(SplineState(curve->spline) == before);
}

void TestKeysDialogSafety::anEditorCanDieDuringADragOverAField_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("change") << "tension";
    QTest::newRow("move") << "posX";
    QTest::newRow("move by the twin") << "";
}

void TestKeysDialogSafety::anEditorCanDieDuringADragOverAField()
{
    QFETCH(QString, name);
    fixture->pick({{10.0, 10.0}});
    CustomEditLine* const line =
        name.isEmpty() ? fixture->editor.positionX() : dialog->findChild<CustomEditLine*>(name);
    fixture->pressField(line);
    fixture->dragField(line, 20);
    fixture.reset();
    QVERIFY(!fixture);
}

void TestKeysDialogSafety::aRemovedCurveIsNoLongerEdited()
{
    fixture->pick({{10.0, 10.0}});
    fixture->editor.removeCurve("n", "c");
    fixture->logic().clearCurves();
    const SplineState before(curve->spline);
    dialog->valueChangedTyped(7.0, dialog->posY);
    dialog->clickedNext();
    dialog->changeNodeType(1);
    QVERIFY(SplineState(curve->spline) == before);
    QVERIFY(!dialog->posY->isEnabled());
}

void TestKeysDialogSafety::aDestroyedSplineIsNoLongerEdited_data()
{
    QTest::addColumn<bool>("duringADrag");
    QTest::newRow("between two edits") << false;
    QTest::newRow("during a drag") << true;
}

void TestKeysDialogSafety::aDestroyedSplineIsNoLongerEdited()
{
    QFETCH(bool, duringADrag);
    fixture->pick({{10.0, 10.0}});
    if (duringADrag) {
        fixture->pressField(dialog->posY);
        fixture->dragField(dialog->posY, 20);
    }
    fixture->curves.erase("n.c");
    fixture->dragField(dialog->posY, 40);
    fixture->releaseField(dialog->posY);
    dialog->valueChangedTyped(7.0, dialog->tension);
    dialog->clickedNext();
    dialog->changeNodeType(1);
    fixture->editor.refreshEditor();
    QVERIFY(!dialog->posY->isEnabled());
    QVERIFY(dialog->node->text().isEmpty());
}

/// Another editor of the same spline, or the host, has taken the key and freed it.
void TestKeysDialogSafety::aFreedKeyIsNotShownAndNotEdited()
{
    fixture->pick({{10.0, 10.0}});
    fixture->pressField(dialog->posY);
    PointInfo* const key = curve->spline.at(0);
    curve->spline.remove(key);
    delete key;
    const SplineState before(curve->spline);
    fixture->dragField(dialog->posY, 40);
    fixture->releaseField(dialog->posY);
    dialog->clickedPrev();
    fixture->editor.refreshEditor();
    QVERIFY(SplineState(curve->spline) == before);
    QVERIFY(!dialog->posY->isEnabled());
    QVERIFY(dialog->node->text().isEmpty());
}

/// The key is alive, but its owner is a step of the other editor.
void TestKeysDialogSafety::aKeyThatAnotherEditorTakesBackUnderADragIsNotWritten()
{
    KeysDialogFixture other;
    other.editor.addCurve("n", "c", Qt::green, 0.0f, &curve->spline, &curve->expression, -1000.0f,
                          1000.0f, false, true);
    other.editor.setCurveEditableOn(other.editor.searchAllNodeList("n.c"));
    other.editor.selectNodes(QStringList("n.c"));
    other.doubleClick(EditorFixture::pixel(40.0, 30.0));
    PointInfo* const key = curve->spline.at(3);
    fixture->pick({{40.0, 30.0}});
    fixture->pressField(dialog->tension);
    while (curve->spline.getControlPointsNumber() == 4U) {
        QVERIFY(other.editor.getCmdManager()->undo());
    }
    const SplineState::Bits before = SplineState::bitsOf(*key);
    fixture->dragField(dialog->tension, 40);
    fixture->releaseField(dialog->tension);
    dialog->valueChangedTyped(7.0, dialog->posY);
    QCOMPARE(SplineState::bitsOf(*key), before);
    QCOMPARE(fixture->undoSteps(), QStringList("Select Control Points"));
}

void TestKeysDialogSafety::ofSeveralKeysTheLivingOnesAreShown()
{
    fixture->pick({{10.0, 10.0}, {20.0, 20.0}});
    PointInfo* const current = fixture->selectionOf("n.c").currentPoint;
    curve->spline.remove(current);
    delete current;
    fixture->editor.refreshEditor();
    QCOMPARE(dialog->posY->text(), QString("10.00"));
    fixture->type(dialog->posY, "12");
    QCOMPARE(curve->spline.at(0)->value, 12.0);
}

void TestKeysDialogSafety::undoUnderADragDropsTheKeyFromIt()
{
    fixture->doubleClick(EditorFixture::pixel(40.0, 30.0));
    QCOMPARE(dialog->node->text(), QString("3"));
    fixture->pressField(dialog->tension);
    fixture->dragField(dialog->tension, 20);
    fixture->undoAll();
    fixture->dragField(dialog->tension, 40);
    fixture->releaseField(dialog->tension);
    QCOMPARE(curve->spline.getControlPointsNumber(), 3U);
}

/// The host may do what it likes when it hears of a step of the drag.
void TestKeysDialogSafety::theHostCanRemoveTheCurveInItsReport()
{
    fixture->pick({{10.0, 10.0}});
    connect(&fixture->editor, &CurveEditor::curveHasChanged, &fixture->editor,
            [this] { fixture->editor.removeCurve("n", "c"); });
    fixture->pressField(dialog->posY);
    fixture->dragField(dialog->posY, 20);
    fixture->releaseField(dialog->posY);
    QVERIFY(!dialog->posY->isEnabled());
}

void TestKeysDialogSafety::keysUnderAnExpressionAreNeitherShownNorWritten()
{
    LentCurve& expression = fixture->addCurve("n.e", {{12.0, 30.0}, {25.0, 30.0}}, "2");
    fixture->editor.selectNodes(QStringList({"n.e", "n.c"}));
    fixture->selectKeys("n.e", {0});
    fixture->selectKeys("n.c", {1});
    fixture->editor.refreshEditor();
    QCOMPARE(fixture->logic().editingType(), 3);
    QCOMPARE(dialog->node->text(), QString("1"));
    QCOMPARE(dialog->posY->text(), QString("20.00"));
    // A key press opens the fields in a mixed set, too.
    fixture->typeKey(Qt::Key_T);
    const SplineState before(expression.spline);
    fixture->type(dialog->posY, "21");
    fixture->type(dialog->posX, "22");
    dialog->changeNodeType(3);
    QVERIFY(SplineState(expression.spline) == before);
    QCOMPARE(curve->spline.at(1)->value, 21.0);
    // Counted they are: two curves have a selection, so there is no neighbour to go to.
    fixture->typeKey(Qt::Key_T);
    QVERIFY(!dialog->nextNode->isEnabled());
}

/// The arrow keys put keys of the first curve into the selections of the others.
void TestKeysDialogSafety::aKeyOfAnotherCurveInASelectionIsNotWritten()
{
    LentCurve& other = fixture->addCurve("n.d", {{12.0, 30.0}, {40.0, 35.0}});
    fixture->editor.selectNodes(QStringList({"n.c", "n.d"}));
    fixture->selectKeys("n.c", {0});
    fixture->selectKeys("n.d", {0});
    PointInfo* const borrowed = curve->spline.at(2); // as the arrow keys do
    fixture->selectionOf("n.d").selectSingleKey({borrowed, curve->spline.keySerial(borrowed)});
    fixture->editor.refreshEditor();
    QCOMPARE(dialog->node->text(), QString("#"));
    QCOMPARE(dialog->posY->text(), QString("..."));
    const SplineState before(other.spline);
    fixture->type(dialog->posY, "11");
    QCOMPARE(curve->spline.at(0)->value, 11.0);
    QCOMPARE(curve->spline.at(2)->value, 5.0);
    QVERIFY(SplineState(other.spline) == before);
}

void TestKeysDialogSafety::aRateOfZeroFramesLosesNoKey()
{
    fixture->pick({{10.0, 10.0}});
    fixture->editor.setShowFrames();
    fixture->editor.setFps(0.0);
    const SplineState before(curve->spline);
    for (const char* const text : {"0", "5", "-5"}) {
        fixture->type(dialog->posX, text);
    }
    QVERIFY(SplineState(curve->spline) == before);
}

void TestKeysDialogSafety::numbersWithoutEndAreNotWritten()
{
    fixture->pick({{10.0, 10.0}});
    const SplineState before(curve->spline);
    for (const double number : {std::nan(""), std::numeric_limits<double>::infinity()}) {
        dialog->valueChangedTyped(number, dialog->posX);
        dialog->valueChangedTyped(number, dialog->posY);
    }
    QVERIFY(SplineState(curve->spline) == before);
}

void TestKeysDialogSafety::aPressCutOffByClosingTheFieldLeavesNoOpenStep()
{
    fixture->pick({{10.0, 10.0}});
    fixture->pressField(dialog->tension);
    fixture->dragField(dialog->tension, 100);
    fixture->editor.selectNoneKeys(); // closes the field, which never hears of the release
    fixture->pick({{20.0, 20.0}});
    fixture->pressField(dialog->tension);
    fixture->dragField(dialog->tension, 100);
    fixture->releaseField(dialog->tension);
    QCOMPARE(curve->spline.at(1)->tcb.tension, 0.5);
    fixture->undoAll();
    QCOMPARE(curve->spline.at(0)->tcb.tension, 0.0);
    QCOMPARE(curve->spline.at(1)->tcb.tension, 0.0);
}

void TestKeysDialogSafety::escapeDuringADragEndsIt()
{
    fixture->pick({{10.0, 10.0}});
    fixture->pressField(dialog->tension);
    fixture->dragField(dialog->tension, 100);
    QTest::keyClick(dialog, Qt::Key_Escape);
    QVERIFY(!dialog->isVisible());
    fixture->editor.getCmdManager()->undo();
    QCOMPARE(curve->spline.at(0)->tcb.tension, 0.0);
}

void TestKeysDialogSafety::aTextBegunForOneKeyIsNotSentToAnother()
{
    fixture->pick({{10.0, 10.0}});
    fixture->write(dialog->posY, "35");
    fixture->selectKeys("n.c", {1});
    fixture->editor.refreshEditor();
    QCOMPARE(dialog->posY->text(), QString("20.00"));
    dialog->posY->clearFocus();
    QCOMPARE(curve->spline.at(1)->value, 20.0);
}

void TestKeysDialogSafety::aTextBegunForAKeyThatUndoTakesAwayIsNotSent()
{
    fixture->doubleClick(EditorFixture::pixel(40.0, 30.0));
    fixture->write(dialog->posY, "35");
    fixture->undoAll();
    QCOMPARE(curve->spline.getControlPointsNumber(), 3U);
    QVERIFY(!dialog->posY->isEnabled());
    fixture->editor.getCmdManager()->redo();
    QCOMPARE(dialog->posY->text(), QString("30.00"));
    dialog->posY->clearFocus();
    QCOMPARE(curve->spline.at(3)->value, 30.0);
}

/// The drag over a field ends when the field is closed, and the host hears of it.
void TestKeysDialogSafety::theHostCanRemoveTheShownKeyWhileItsFieldIsClosed()
{
    fixture->pick({{10.0, 10.0}});
    fixture->pressField(dialog->tension);
    fixture->dragField(dialog->tension, 20);
    fixture->selectKeys("n.c", {0, 1});
    curve->spline.at(1)->type = zk_spline::bezier;
    connect(&fixture->editor, &CurveEditor::curveHasChanged, &fixture->editor,
            [this] { curve->spline.removeAllControlPoints(); });
    fixture->editor.refreshEditor();
    QCOMPARE(curve->spline.getControlPointsNumber(), 0U);
    fixture->editor.refreshEditor();
    QVERIFY(!dialog->tension->isEnabled());
}

/// Closing a field ends the edit in it.
void TestKeysDialogSafety::aTextBegunInAFieldThatIsClosedIsNotSent()
{
    LentCurve& other = fixture->addCurve("n.d", {{12.0, 30.0}, {40.0, 35.0}});
    fixture->editor.selectNodes(QStringList({"n.c", "n.d"}));
    fixture->pick({{10.0, 10.0}});
    fixture->write(dialog->posX, "35");
    fixture->selectKeys("n.c", {0, 1});
    fixture->selectKeys("n.d", {0});
    fixture->editor.refreshEditor();
    QVERIFY(!dialog->posX->isEnabled());
    QCOMPARE(curve->spline.at(0)->time, 10.0);
    QCOMPARE(other.spline.at(0)->time, 12.0);
    QVERIFY(!fixture->undoSteps().contains("Change Control Points Values"));
}

/// Keys that a field has no use for climb to the canvas, which shows the selection anew.
void TestKeysDialogSafety::shiftPressedInAFieldOfTheMenuBarKeepsWhatWasTyped()
{
    fixture->pick({{10.0, 10.0}});
    CustomEditLine* const line = fixture->editor.positionX();
    fixture->write(line, "1");
    QTest::keyClick(line, Qt::Key_Shift);
    QTest::keyClicks(line, "2");
    QCOMPARE(line->text(), QString("12"));
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(curve->spline.at(0)->time, 12.0);
}

QTEST_MAIN(TestKeysDialogSafety)
#include "test_keys_dialog_safety.moc"

#include <QSignalSpy>
