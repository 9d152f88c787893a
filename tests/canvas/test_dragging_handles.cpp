#include "canvas/StepLabels.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <cmath>

using Mode = CurveEditor::curveEditorModes;
using zk_spline::bezier;
using zk_spline::tcb;

/// Drags of the handles of tangents.
class TestDraggingHandles : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

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

    void theLineBetweenTheHandlesMovesBothOfABrokenKey()
    {
        EditorFixture fixture;
        LentCurve& curve =
            fixture.editCurve("n.a", {{10, 10, bezier}, {25, 20, bezier}, {40, 20, bezier}});
        curve.spline.setTanRight(curve.spline.at(1), 0.1);
        fixture.selectKeys("n.a", {1});
        fixture.paint();
        fixture.press(fixture.pixel(23, 20));
        QCOMPARE(fixture.selectionOf("n.a").keyPart, 1);
        fixture.moveTo(fixture.pixel(21, 23));
        fixture.release(fixture.pixel(21, 23));
        const double slope = 3.0 / (-4.0 - 0.001 * 5.0);
        QCOMPARE(curve.spline.at(1)->bezier.tangentLeft, slope);
        QCOMPARE(curve.spline.at(1)->bezier.tangentRight, slope);
        QVERIFY(!curve.spline.at(1)->unifiedTangents);
        QCOMPARE(fixture.undoAll(), QStringList(changeLabel));
        QCOMPARE(curve.spline.at(1)->bezier.tangentRight, 0.1);
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
};

QTEST_MAIN(TestDraggingHandles)
#include "test_dragging_handles.moc"
