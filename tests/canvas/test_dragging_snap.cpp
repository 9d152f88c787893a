#include "canvas/FrameGrid.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

using Mode = CurveEditor::curveEditorModes;

/// Drags of keys with the axis lock and with snap to the grid.
class TestDraggingSnap : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

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

    void halfwayBetweenTwoLinesTheLowerOneCatches()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{5, 10}, {48, 20}});
        fixture.editor.setShowTime();
        fixture.paint();
        fixture.editor.switchSnapH();
        fixture.editor.setHSnapRadius(0.5);
        fixture.press(fixture.pixel(5, 10));
        fixture.moveTo(fixture.pixel(15, 10));
        QCOMPARE(curve.spline.at(0)->time, 10.0);
        fixture.moveTo(fixture.pixel(15.1, 10));
        QCOMPARE(curve.spline.at(0)->time, 20.0);
        fixture.release(fixture.pixel(15.1, 10));
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

    void severalKeysMoveByTheSnappedMouse()
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
};

QTEST_MAIN(TestDraggingSnap)
#include "test_dragging_snap.moc"
