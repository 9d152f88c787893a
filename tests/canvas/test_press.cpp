#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <QSignalSpy>

using Mode = CurveEditor::curveEditorModes;

namespace {

const QString selectLabel = QStringLiteral("Select Control Points");
const QString moveLabel = QStringLiteral("Move Control Points");
const QString changeLabel = QStringLiteral("Change Control Points Values");
const QString addLabel = QStringLiteral("Add New Control Point");
const QString deleteLabel = QStringLiteral("Delete Control Points");

} // namespace

/// What each press does, by mode, button and what lies under the mouse.
class TestPress : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void withNoCurvesALeftPressDoesNothingAtAll()
    {
        EditorFixture fixture;
        fixture.press(QPoint(50, 50));
        QVERIFY(!fixture.canvas().rubberDrag);
        QVERIFY(!fixture.canvas().rectActive);
        fixture.moveTo(QPoint(90, 90));
        QVERIFY(!fixture.canvas().rectActive);
        fixture.release(QPoint(90, 90));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
    }

    void anExpressionCurveShowsARubberBandThatSelectsNothing()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {}, "t");
        fixture.press(QPoint(50, 50));
        QVERIFY(fixture.canvas().rubberDrag);
        fixture.moveTo(QPoint(290, 290));
        QVERIFY(fixture.canvas().rectActive);
        fixture.release(QPoint(290, 290));
        QVERIFY(!fixture.canvas().rectActive);
        QVERIFY(!fixture.canvas().rectValid);
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void aPressOnAKeySelectsItAndStartsAMove()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.press(fixture.pixel(20, 20));
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(1));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::MOVING);
        QVERIFY(!fixture.canvas().rubberDrag);
        fixture.release(fixture.pixel(20, 20));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
        QCOMPARE(fixture.undoSteps(), QStringList(selectLabel));
    }

    void aPressOnAKeyOfOneCurveDeselectsTheKeysOfTheOthers()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{10, 10}, {20, 20}});
        LentCurve& b = fixture.addCurve("n.b", {{10, 30}, {20, 35}});
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        fixture.click(fixture.pixel(20, 35));
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        QCOMPARE(fixture.selectionOf("n.b").selectedPoints, (QList<PointInfo*>{b.spline.at(1)}));
        // Toggling leaves them alone.
        fixture.click(fixture.pixel(10, 10), Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints, (QList<PointInfo*>{a.spline.at(0)}));
        QCOMPARE(fixture.selectionOf("n.b").selectedPoints, (QList<PointInfo*>{b.spline.at(1)}));
        QCOMPARE(fixture.undoSteps(), (QStringList{selectLabel, selectLabel}));
    }

    void aPressInsideTheSelectionSpanAtAnyHeightGrabsTheSelection()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0, 1});
        fixture.paint();
        fixture.press(fixture.pixel(15, 38));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::MOVING);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints.size(), qsizetype(2));
        fixture.release(fixture.pixel(15, 38));
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void aPressOutsideStartsARectangle()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.press(fixture.pixel(40, 30));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::SELECTING);
        QVERIFY(fixture.canvas().rubberDrag);
        fixture.release(fixture.pixel(40, 30));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
    }

    void withNothingSelectedAPressAtTimeZeroMovesNothing()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.press(fixture.pixel(0, 30));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::MOVING);
        fixture.moveTo(fixture.pixel(5, 30));
        fixture.release(fixture.pixel(5, 30));
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void theMiddleButtonOutsideDoesNothingToCurves()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.press(fixture.pixel(40, 30), Qt::MiddleButton);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
        QVERIFY(!fixture.canvas().panDrag);
        fixture.release(fixture.pixel(40, 30), Qt::MiddleButton);
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void theMiddleButtonOnAKeyDragsIt()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.press(fixture.pixel(10, 10), Qt::MiddleButton);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::MOVING);
        fixture.moveTo(fixture.pixel(12, 15), Qt::MiddleButton);
        fixture.release(fixture.pixel(12, 15), Qt::MiddleButton);
        QCOMPARE(curve.spline.at(0)->time, 12.0);
        QCOMPARE(curve.spline.at(0)->value, 15.0);
    }

    void theAddToolAddsAKeyWhereOneCurveIsEdited()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}});
        fixture.editor.setAddKeyMode();
        fixture.click(fixture.pixel(30, 20));
        QCOMPARE(curve.spline.getControlPointsNumber(), 2u);
        const PointInfo* key = curve.spline.at(1);
        QCOMPARE(key->time, 30.0);
        QCOMPARE(key->value, 20.0);
        QCOMPARE(int(key->type), int(zk_spline::bezier));
        QVERIFY(key->unifiedTangents);
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(1));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::ADD);
        QCOMPARE(fixture.undoSteps(), QStringList(addLabel));
    }

    void theAddToolDoesNothingWithTwoCurves()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{10, 10}});
        LentCurve& b = fixture.addCurve("n.b", {{10, 20}});
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.editor.setAddKeyMode();
        fixture.press(fixture.pixel(30, 20));
        QVERIFY(!fixture.canvas().rubberDrag);
        fixture.release(fixture.pixel(30, 20));
        QCOMPARE(a.spline.getControlPointsNumber() + b.spline.getControlPointsNumber(), 2u);
    }

    void ctrlAddsAKeyAtRest()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}});
        fixture.click(fixture.pixel(30, 20), Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(curve.spline.getControlPointsNumber(), 2u);
    }

    void shiftTogglesTheKeyUnderTheMouse()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        fixture.click(fixture.pixel(20, 20), Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                 (QList<PointInfo*>{curve.spline.at(0), curve.spline.at(1)}));
        fixture.click(fixture.pixel(10, 10), Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                 (QList<PointInfo*>{curve.spline.at(1)}));
        QCOMPARE(fixture.undoSteps(), (QStringList{selectLabel, selectLabel}));
    }

    void shiftInsideTheSpanWithoutAKeyDoesNothing()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0, 2});
        fixture.paint();
        fixture.press(fixture.pixel(15, 35), Qt::LeftButton, Qt::ShiftModifier);
        QVERIFY(!fixture.canvas().rubberDrag);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::ADD2SEL);
        fixture.release(fixture.pixel(15, 35), Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints.size(), qsizetype(2));
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void shiftOutsideStartsAnAdditiveRectangle()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        fixture.press(fixture.pixel(25, 5), Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::ADDING2SEL);
        fixture.moveTo(fixture.pixel(35, 15), Qt::LeftButton, Qt::ShiftModifier);
        fixture.release(fixture.pixel(35, 15), Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                 (QList<PointInfo*>{curve.spline.at(0), curve.spline.at(2)}));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::ADD2SEL);
        QCOMPARE(fixture.undoSteps(), QStringList(selectLabel));
    }

    void theDeleteToolDeletesTheKeyUnderTheMouse()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0});
        fixture.editor.setDeleteKeyMode();
        fixture.paint();
        fixture.click(fixture.pixel(20, 20));
        QCOMPARE(curve.spline.getControlPointsNumber(), 2u);
        QCOMPARE(curve.spline.at(0)->time, 10.0);
        QCOMPARE(curve.spline.at(1)->time, 30.0);
        QCOMPARE(fixture.undoAll(), (QStringList{deleteLabel, selectLabel}));
        QCOMPARE(curve.spline.getControlPointsNumber(), 3u);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                 (QList<PointInfo*>{curve.spline.at(0)}));
    }

    void theDeleteToolOnNothingOrWithTheMiddleButtonDoesNothing()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.setDeleteKeyMode();
        fixture.paint();
        fixture.click(fixture.pixel(40, 5));
        fixture.click(fixture.pixel(20, 20), Qt::MiddleButton);
        QCOMPARE(curve.spline.getControlPointsNumber(), 2u);
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void theSelectToolStartsARectangleAnywhere()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.setSelectMode();
        fixture.paint();
        fixture.press(fixture.pixel(20, 20));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::SELECTING);
        QVERIFY(fixture.canvas().rubberDrag);
        fixture.release(fixture.pixel(20, 20));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::SELECT);
    }

    void theMoveToolMovesTheSelectionFromAnywhere()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.selectKeys("n.a", {0, 1});
        fixture.editor.setMoveMode();
        fixture.paint();
        fixture.drag(fixture.pixel(40, 30), fixture.pixel(42, 31));
        QCOMPARE(curve.spline.at(0)->time, 12.0);
        QCOMPARE(curve.spline.at(0)->value, 11.0);
        QCOMPARE(curve.spline.at(1)->time, 22.0);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::MOVE);
        QCOMPARE(fixture.undoSteps(), QStringList(moveLabel));
    }

    void pressesInPassingModesAreConsumed_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("selecting") << int(Mode::SELECTING);
        QTest::newRow("moving") << int(Mode::MOVING);
        QTest::newRow("adding to the selection") << int(Mode::ADDING2SEL);
        QTest::newRow("scale") << int(Mode::SCALE);
        QTest::newRow("snap") << int(Mode::SNAP);
    }

    void pressesInPassingModesAreConsumed()
    {
        QFETCH(int, mode);
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.setCurrentMode(static_cast<Mode>(mode));
        fixture.press(fixture.pixel(40, 30));
        QVERIFY(!fixture.canvas().rubberDrag);
        fixture.release(fixture.pixel(40, 30));
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void aSecondButtonDuringADragIsIgnored()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.press(fixture.pixel(10, 10));
        fixture.moveTo(fixture.pixel(11, 11));
        QVERIFY(!fixture.closesMenuOf([&fixture] {
            fixture.send(QEvent::MouseButtonPress, fixture.pixel(11, 11), Qt::RightButton,
                         Qt::LeftButton | Qt::RightButton);
        }));
        fixture.send(QEvent::MouseButtonRelease, fixture.pixel(11, 11), Qt::RightButton,
                     Qt::LeftButton);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::MOVING);
        fixture.moveTo(fixture.pixel(12, 12));
        fixture.release(fixture.pixel(12, 12));
        QCOMPARE(curve.spline.at(0)->time, 12.0);
        QCOMPARE(fixture.undoSteps(), (QStringList{changeLabel, moveLabel, selectLabel}));
    }

    void aMiddleButtonLetGoDuringADragEndsIt()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.press(fixture.pixel(10, 10));
        fixture.moveTo(fixture.pixel(12, 12));
        fixture.send(QEvent::MouseButtonPress, fixture.pixel(12, 12), Qt::MiddleButton,
                     Qt::LeftButton | Qt::MiddleButton);
        fixture.send(QEvent::MouseButtonRelease, fixture.pixel(12, 12), Qt::MiddleButton,
                     Qt::LeftButton);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
        fixture.release(fixture.pixel(12, 12));
        QCOMPARE(fixture.undoSteps(), (QStringList{changeLabel, moveLabel, selectLabel}));
    }

    void aRightPressOnNothingWithKeysInSpanKeepsTheSelectionAndOpensTheMenu()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0, 2});
        fixture.paint();
        QVERIFY(fixture.closesMenuOf(
            [&fixture] { fixture.press(fixture.pixel(15, 35), Qt::RightButton); }));
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints.size(), qsizetype(2));
        fixture.release(fixture.pixel(15, 35), Qt::RightButton);
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void aRightPressOutsideClearsTheSelection()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        QVERIFY(fixture.closesMenuOf(
            [&fixture] { fixture.press(fixture.pixel(40, 35), Qt::RightButton); }));
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        QCOMPARE(fixture.undoSteps(), QStringList(selectLabel));
    }

    void aRightPressOnAnUnselectedKeySelectsIt()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        QVERIFY(fixture.closesMenuOf(
            [&fixture] { fixture.press(fixture.pixel(20, 20), Qt::RightButton); }));
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(1));
    }

    void theDialogsOwnEventsReachTheCanvasOnce()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0});
        QSignalSpy undoAsked(&fixture.editor, &CurveEditor::curveEditorUndo);
        fixture.canvas().setFocus();
        QTest::keyClick(&fixture.canvas(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(undoAsked.count(), 1);
        QTest::keyClick(&fixture.editor, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(undoAsked.count(), 2);
    }
};

QTEST_MAIN(TestPress)
#include "test_press.moc"
