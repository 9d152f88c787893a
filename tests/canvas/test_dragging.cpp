#include "canvas/FrameGrid.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <cmath>

using Mode = CurveEditor::curveEditorModes;
using zk_spline::bezier;
using zk_spline::tcb;

namespace {

const QString selectLabel = QStringLiteral("Select Control Points");
const QString moveLabel = QStringLiteral("Move Control Points");
const QString changeLabel = QStringLiteral("Change Control Points Values");

} // namespace

/// Drags of keys and handles, with snap, axis lock and undo.
class TestDragging : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void oneKeyLandsUnderTheMouse()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {30, 20}});
        fixture.paint();
        // Grabbed two pixels beside its centre: no offset is kept.
        fixture.drag(fixture.pixel(10, 10) + QPoint(2, 1), fixture.pixel(15, 12));
        QCOMPARE(curve.spline.at(0)->time, 15.0);
        QCOMPARE(curve.spline.at(0)->value, 12.0);
        QCOMPARE(fixture.undoAll(), (QStringList{changeLabel, moveLabel, selectLabel}));
        QCOMPARE(curve.spline.at(0)->time, 10.0);
        QCOMPARE(curve.spline.at(0)->value, 10.0);
    }

    void aDragThatEndsWhereItBeganLeavesNoStep()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {30, 20}});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        fixture.press(fixture.pixel(10, 10));
        fixture.moveTo(fixture.pixel(17, 14));
        fixture.moveTo(fixture.pixel(10, 10));
        fixture.release(fixture.pixel(10, 10));
        QCOMPARE(curve.spline.at(0)->time, 10.0);
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void aKeyDraggedPastTheNextChangesPlacesAndUndoRestoresTheOrder()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        PointInfo* dragged = curve.spline.at(0);
        fixture.paint();
        fixture.press(fixture.pixel(10, 10));
        for (int time = 11; time <= 25; ++time) {
            fixture.moveTo(fixture.pixel(time, 10));
        }
        fixture.release(fixture.pixel(25, 10));
        QCOMPARE(curve.spline.at(1), dragged);
        QCOMPARE(dragged->time, 25.0);
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, dragged);
        fixture.undoAll();
        QCOMPARE(curve.spline.at(0), dragged);
        QCOMPARE(dragged->time, 10.0);
    }

    void severalKeysKeepTheirDistances()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}, {40, 5}});
        fixture.selectKeys("n.a", {0, 1, 2});
        fixture.paint();
        fixture.press(fixture.pixel(20, 20));
        fixture.moveTo(fixture.pixel(30, 22));
        fixture.moveTo(fixture.pixel(35, 25));
        fixture.release(fixture.pixel(35, 25));
        QList<double> times;
        QList<double> values;
        for (const PointInfo* key : curve.spline.getControlPoints()) {
            times.append(key->time);
            values.append(key->value);
        }
        QCOMPARE(times, (QList<double>{25, 35, 40, 45}));
        QCOMPARE(values, (QList<double>{15, 25, 5, 15}));
        QCOMPARE(fixture.undoAll(), QStringList(moveLabel));
        QCOMPARE(curve.spline.at(3)->time, 40.0);
        QCOMPARE(curve.spline.at(0)->value, 10.0);
    }

    void keysOfSeveralCurvesMoveTogetherInOneStep()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{10, 10}, {20, 20}});
        LentCurve& b = fixture.addCurve("n.b", {{12, 30}, {22, 35}});
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.selectKeys("n.a", {0, 1});
        fixture.selectKeys("n.b", {0, 1});
        fixture.paint();
        fixture.drag(fixture.pixel(15, 5), fixture.pixel(18, 3));
        QCOMPARE(a.spline.at(0)->time, 13.0);
        QCOMPARE(a.spline.at(1)->value, 18.0);
        QCOMPARE(b.spline.at(0)->time, 15.0);
        QCOMPARE(b.spline.at(1)->value, 33.0);
        QCOMPARE(fixture.undoAll(), QStringList(moveLabel));
        QCOMPARE(a.spline.at(0)->time, 10.0);
        QCOMPARE(b.spline.at(1)->value, 35.0);
    }

    void anUnselectedKeyGrabbedFromSeveralLeavesNoChangeStep()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0, 1});
        fixture.paint();
        fixture.drag(fixture.pixel(30, 10), fixture.pixel(32, 11));
        QCOMPARE(curve.spline.at(2)->time, 32.0);
        QCOMPARE(curve.spline.at(0)->time, 10.0);
        QCOMPARE(fixture.undoSteps(), (QStringList{moveLabel, selectLabel}));
    }

    void theAxisLockHoldsTheSmallerWay_data()
    {
        QTest::addColumn<QPoint>("way"); // in pixels
        QTest::addColumn<QPointF>("landed");
        QTest::newRow("more right than up: the value stays") << QPoint(50, -30) << QPointF(15, 10);
        QTest::newRow("more up than right: the time stays") << QPoint(30, -50) << QPointF(10, 15);
        QTest::newRow("on a tie the time stays") << QPoint(50, -50) << QPointF(10, 15);
    }

    void theAxisLockHoldsTheSmallerWay()
    {
        QFETCH(QPoint, way);
        QFETCH(QPointF, landed);
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {40, 20}});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        fixture.press(fixture.pixel(10, 10));
        fixture.key(QEvent::KeyPress, Qt::Key_Alt);
        fixture.moveTo(fixture.pixel(10, 10) + way, Qt::LeftButton, Qt::AltModifier);
        QCOMPARE(curve.spline.at(0)->time, landed.x());
        QCOMPARE(curve.spline.at(0)->value, landed.y());
        fixture.release(fixture.pixel(10, 10) + way, Qt::LeftButton, Qt::AltModifier);
    }

    void theLockEndsWhenItsKeyIsLetGoInMidDrag()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {40, 20}});
        fixture.paint();
        fixture.press(fixture.pixel(10, 10));
        fixture.key(QEvent::KeyPress, Qt::Key_Alt);
        fixture.moveTo(fixture.pixel(15, 12), Qt::LeftButton, Qt::AltModifier);
        QCOMPARE(curve.spline.at(0)->value, 10.0);
        fixture.key(QEvent::KeyRelease, Qt::Key_Alt);
        fixture.moveTo(fixture.pixel(15, 12));
        QCOMPARE(curve.spline.at(0)->value, 12.0);
        fixture.release(fixture.pixel(15, 12));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
    }

    void gridSnapCatchesWithinItsRadius_data()
    {
        QTest::addColumn<double>("time");
        QTest::addColumn<double>("landed");
        QTest::newRow("within the radius above a line") << 10.9 << 10.0;
        QTest::newRow("beyond the radius") << 11.1 << 11.1;
        QTest::newRow("within the radius below a line") << 19.1 << 20.0;
        QTest::newRow("on a line") << 20.0 << 20.0;
    }

    void gridSnapCatchesWithinItsRadius()
    {
        QFETCH(double, time);
        QFETCH(double, landed);
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{5, 10}, {48, 20}});
        fixture.editor.setShowTime();
        fixture.paint();
        QCOMPARE(fixture.logic().frameGrid()->snapStepX, 10.0);
        fixture.editor.switchSnapH();
        fixture.selectKeys("n.a", {0});
        fixture.drag(fixture.pixel(5, 10), fixture.pixel(time, 13));
        QCOMPARE(curve.spline.at(0)->time, landed);
        QCOMPARE(curve.spline.at(0)->value, 13.0); // the other axis is not snapped
    }

    void verticalSnapHasItsOwnRadius()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{5, 15}, {48, 20}});
        fixture.paint();
        QCOMPARE(fixture.logic().frameGrid()->snapStepY, 10.0);
        fixture.editor.switchSnapV();
        fixture.drag(fixture.pixel(5, 15), fixture.pixel(7.3, 22.5));
        QCOMPARE(curve.spline.at(0)->value, 20.0);
        QCOMPARE(curve.spline.at(0)->time, 7.3);
    }

    void severalKeysMoveByTheSnappedMouseAndShowTheMark()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{11, 10}, {23, 20}});
        fixture.selectKeys("n.a", {0, 1});
        fixture.editor.setShowTime();
        fixture.paint();
        fixture.editor.switchSnapH();
        fixture.press(fixture.pixel(15, 30));
        fixture.moveTo(fixture.pixel(19.5, 30)); // the mouse snaps to 20: a way of 5
        QCOMPARE(curve.spline.at(0)->time, 16.0);
        QCOMPARE(curve.spline.at(1)->time, 28.0);
        fixture.release(fixture.pixel(19.5, 30));
    }

    void aHandleIsDraggedAndUndone()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10, bezier}, {30, 20, bezier}});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        SplineCurveGraph* graph = fixture.logic().findCurve("n.a")->splineGraph();
        const QPoint handle = graph->rightHandlePos(fixture.pixel(10, 10), 0, true);
        QCOMPARE(handle, fixture.pixel(10, 10) + QPoint(45, 0));

        fixture.press(handle);
        QCOMPARE(fixture.selectionOf("n.a").keyPart, 3);
        fixture.moveTo(fixture.pixel(14, 18));
        fixture.release(fixture.pixel(14, 18));
        const double slope = 8.0 / (4.0 + 0.001 * std::sqrt(80.0));
        QCOMPARE(curve.spline.at(0)->bezier.tangentRight, slope);
        QCOMPARE(curve.spline.at(0)->bezier.tangentLeft, 0.0);
        QCOMPARE(curve.spline.at(0)->time, 10.0);
        QCOMPARE(fixture.undoAll(), QStringList(changeLabel));
        QCOMPARE(curve.spline.at(0)->bezier.tangentRight, 0.0);
    }

    void aUnifiedKeyMovesBothHandles()
    {
        EditorFixture fixture;
        LentCurve& curve =
            fixture.editCurve("n.a", {{10, 10, bezier}, {20, 20, bezier}, {30, 20, bezier}});
        curve.spline.unifyTangent(curve.spline.at(1));
        fixture.selectKeys("n.a", {1});
        fixture.paint();
        SplineCurveGraph* graph = fixture.logic().findCurve("n.a")->splineGraph();
        const QPoint handle = graph->leftHandlePos(fixture.pixel(20, 20), 1, false);
        fixture.press(handle);
        QCOMPARE(fixture.selectionOf("n.a").keyPart, 2);
        fixture.moveTo(fixture.pixel(16, 24));
        fixture.release(fixture.pixel(16, 24));
        QVERIFY(curve.spline.at(1)->bezier.tangentLeft < 0.0);
        QCOMPARE(curve.spline.at(1)->bezier.tangentRight, curve.spline.at(1)->bezier.tangentLeft);
    }

    void handlesAreNeitherSnappedNorLocked()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10, bezier}, {30, 20, bezier}});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        fixture.editor.switchSnap();
        fixture.press(fixture.pixel(10, 10) + QPoint(45, 0));
        fixture.key(QEvent::KeyPress, Qt::Key_Alt);
        fixture.moveTo(fixture.pixel(14, 10.8), Qt::LeftButton, Qt::AltModifier);
        const double way = std::sqrt(4.0 * 4.0 + 0.8 * 0.8);
        QVERIFY(std::fabs(curve.spline.at(0)->bezier.tangentRight - 0.8 / (4.0 + 0.001 * way)) <
                1e-9);
        fixture.release(fixture.pixel(14, 10.8), Qt::LeftButton, Qt::AltModifier);
    }

    void withTwoKeysSelectedHandlesCannotBeGrabbed()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10, bezier}, {30, 20, bezier}});
        fixture.selectKeys("n.a", {0, 1});
        fixture.paint();
        fixture.drag(fixture.pixel(10, 10) + QPoint(45, 0), fixture.pixel(15, 11));
        QCOMPARE(curve.spline.at(0)->bezier.tangentRight, 0.0);
        QCOMPARE(curve.spline.at(0)->value, 11.0); // the press fell into the span: both moved
    }

    void aTcbHandleIsNeverHit()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10, tcb}, {30, 10, tcb}});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        fixture.press(fixture.pixel(10, 10) + QPoint(45, 0));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::SELECTING);
        fixture.release(fixture.pixel(10, 10) + QPoint(45, 0));
    }

    void theHostHearsOfADragOfOneCurveLive()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a.b", {{10, 10}, {30, 20}});
        fixture.paint();
        QStringList heard;
        connect(&fixture.editor, &CurveEditor::curveHasChanged, this,
                [&heard](QString& node, QString& curve) { heard.append(node + '|' + curve); });
        fixture.press(fixture.pixel(10, 10));
        heard.clear();
        fixture.moveTo(fixture.pixel(11, 11));
        fixture.moveTo(fixture.pixel(12, 12));
        QCOMPARE(heard, (QStringList{"n|a.b", "n|a.b"}));
        fixture.release(fixture.pixel(12, 12));
    }

    void withTwoCurvesTheHostHearsAtTheEndOnly()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a", {{10, 10}, {30, 20}});
        fixture.addCurve("n.b", {{10, 30}, {30, 35}});
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        int heard = 0;
        connect(&fixture.editor, &CurveEditor::curveHasChanged, this,
                [&heard](QString&, QString&) { ++heard; });
        fixture.press(fixture.pixel(10, 10));
        fixture.moveTo(fixture.pixel(12, 12));
        QCOMPARE(heard, 0);
        fixture.release(fixture.pixel(12, 12));
        QVERIFY(heard > 0);
    }

    void labelsShowDuringADragOnly()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {30, 20}});
        fixture.paint();
        fixture.press(fixture.pixel(10, 10));
        QVERIFY(!fixture.canvas().showLabels);
        fixture.moveTo(fixture.pixel(11, 11));
        QVERIFY(fixture.canvas().showLabels);
        fixture.release(fixture.pixel(11, 11));
        QVERIFY(!fixture.canvas().showLabels);

        fixture.editor.switchToolTips();
        fixture.drag(fixture.pixel(11, 11), fixture.pixel(12, 12));
        QVERIFY(fixture.canvas().showLabels);
    }

    void deletingInMidDragLosesNoKey()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.paint();
        fixture.press(fixture.pixel(20, 20));
        fixture.moveTo(fixture.pixel(21, 22));
        fixture.key(QEvent::KeyPress, Qt::Key_Delete);
        QCOMPARE(curve.spline.getControlPointsNumber(), 2u);
        fixture.moveTo(fixture.pixel(25, 25));
        fixture.release(fixture.pixel(25, 25));
        fixture.undoAll();
        QCOMPARE(curve.spline.getControlPointsNumber(), 3u);
        fixture.editor.getCmdManager()->clear();
    }

    void aSplineDestroyedInMidDragIsLeftAlone()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.paint();
        fixture.press(fixture.pixel(20, 20));
        fixture.moveTo(fixture.pixel(21, 22));
        fixture.curves.erase("n.a");
        fixture.moveTo(fixture.pixel(25, 25));
        fixture.paint();
        fixture.release(fixture.pixel(25, 25));
        fixture.undoAll();
        fixture.typeKey(Qt::Key_Right);
        fixture.typeKey(Qt::Key_Delete);
    }

    void manyKeysOfALongSplineAreDragged()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {});
        const int count = 100000;
        QList<PointInfo*> chosen;
        for (int i = 0; i < count; ++i) {
            PointInfo* key = curve.addKey(i * 0.0004, 10.0 + i % 7);
            if (i >= 40000 && i < 50000) {
                chosen.append(key);
            }
        }
        fixture.selectionOf("n.a").selectPoints(chosen);
        fixture.paint();
        fixture.press(fixture.pixel(18, 30));
        fixture.moveTo(fixture.pixel(18.1, 30));
        fixture.moveTo(fixture.pixel(18.3, 31));
        fixture.release(fixture.pixel(18.3, 31));
        QCOMPARE(chosen.first()->time, 16.0 + (18.3 - 18.0));
        for (unsigned i = 1; i < unsigned(count); ++i) {
            QVERIFY(curve.spline.at(i - 1)->time <= curve.spline.at(i)->time);
        }
        QCOMPARE(fixture.undoAll(), QStringList(moveLabel));
        QCOMPARE(chosen.first()->time, 16.0);
        // Across the whole spline in one step, which must not be a step a key.
        fixture.press(fixture.pixel(18, 30));
        fixture.moveTo(fixture.pixel(48, 30));
        QCOMPARE(curve.spline.findIndex(chosen.last()), count - 1);
        fixture.moveTo(fixture.pixel(1, 30));
        QCOMPARE(curve.spline.findIndex(chosen.first()), 0);
        fixture.release(fixture.pixel(1, 30));
        fixture.undoAll();
        QCOMPARE(curve.spline.findIndex(chosen.first()), 40000);
    }
};

QTEST_MAIN(TestDragging)
#include "test_dragging.moc"
