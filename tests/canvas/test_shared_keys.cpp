#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <memory>

namespace {

/// Everything that the canvas does with selected keys but for taking them away.
void useSelection(EditorFixture& fixture)
{
    CanvasFunctionBase& canvas = fixture.logic();
    canvas.toolTipsOn = true;
    fixture.canvas().showLabels = true;
    fixture.paint();
    fixture.editor.completeViewportSel();
    fixture.editor.completeViewportSelH();
    fixture.editor.completeViewportSelV();
    fixture.setView(0.0, 50.0, 0.0, 40.0);
    canvas.scaleSelection(1.5, 1.5);
    canvas.panSelection(1.0, 1.0);
    canvas.flatTangents();
    canvas.setTangentsBroken(true);
    canvas.setTangentsBroken(false);
    canvas.setSelectedBezier();
    fixture.drag(fixture.pixel(10, 10), fixture.pixel(12, 11));
    fixture.click(fixture.pixel(12, 11), Qt::LeftButton, Qt::ShiftModifier);
    fixture.drag(fixture.pixel(1, 39), fixture.pixel(49, 1), Qt::ShiftModifier);
    fixture.typeKey(Qt::Key_Right);
    fixture.typeKey(Qt::Key_Left);
    fixture.paint();
}

} // namespace

/// Selections that name keys which their own spline does not hold: another editor took them, or
/// the arrow keys walked along another curve.
class TestSharedKeys : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        first = std::make_unique<EditorFixture>();
        second = std::make_unique<EditorFixture>();
        curve = &first->editCurve("n.a", {{10, 10}, {20, 20}});
        second->editor.addCurve("m", "b", Qt::red, 0.0f, &curve->spline, &curve->expression,
                                -1000.0f, 1000.0f, false, true);
        second->editor.setDefaultSelected("m", "b");
    }

    void cleanup()
    {
        second.reset();
        first.reset();
    }

    void aKeyThatAnotherEditorFreedIsNeverRead_data()
    {
        QTest::addColumn<bool>("alone");
        QTest::newRow("selected alone") << true;
        QTest::newRow("selected among others") << false;
    }

    void aKeyThatAnotherEditorFreedIsNeverRead()
    {
        QFETCH(bool, alone);
        addInFirstAndSelectInSecond(alone);
        first->undoAll();
        first->editor.getCmdManager()->clear(); // the key is freed
        QCOMPARE(curve->spline.getControlPointsNumber(), 2u);
        useSelection(*second);
        second->typeKey(Qt::Key_Delete);
        second->undoAll();
        QCOMPARE(curve->spline.getControlPointsNumber(), 2u);
        QCOMPARE(curve->spline.at(0)->time, 10.0);
        QCOMPARE(curve->spline.at(1)->value, 20.0);
    }

    void aKeyFreedInTheMidstOfADragIsNeverRead()
    {
        addInFirstAndSelectInSecond(false);
        second->paint();
        second->press(second->pixel(20, 20));
        second->moveTo(second->pixel(22, 20));
        first->undoAll();
        first->editor.getCmdManager()->clear();
        second->moveTo(second->pixel(23, 20));
        second->release(second->pixel(23, 20));
        QCOMPARE(curve->spline.at(1)->time, 23.0);
        second->undoAll();
        QCOMPARE(curve->spline.at(1)->time, 20.0);
    }

    void aKeyThatTheOtherEditorDeletedComesBackOnce()
    {
        addInFirstAndSelectInSecond(true);
        second->typeKey(Qt::Key_Delete);
        QCOMPARE(curve->spline.getControlPointsNumber(), 2u);
        first->undoAll(); // the key is no longer there to be taken
        second->undoAll();
        QCOMPARE(curve->spline.getControlPointsNumber(), 3u);
    }

    void theSelectionsBoundsPassOverAKeyThatIsGone()
    {
        addInFirstAndSelectInSecond(false);
        first->undoAll();
        first->editor.getCmdManager()->clear();
        double x1 = 0.0;
        double x2 = 0.0;
        double y1 = 0.0;
        double y2 = 0.0;
        QVERIFY(!second->logic().selectionBounds(x1, x2, y1, y2));
        QCOMPARE(QPointF(x1, y1), QPointF(10.0, 10.0));
        QCOMPARE(QPointF(x2, y2), QPointF(20.0, 20.0));
    }

    void theSpanOfKeysThatAreGoneIsEmpty()
    {
        addInFirstAndSelectInSecond(true);
        first->undoAll();
        first->editor.getCmdManager()->clear();
        second->addCurve("m.c", {{30, 30}, {40, 30}});
        second->editor.addNodesToSelection("m.c");
        second->selectKeys("m.c", {0, 1});
        QVERIFY(!isOutside(*second, 35.0));
        QVERIFY(isOutside(*second, 15.0)); // the curve whose key is gone adds no span from 0 on
    }

    void aBorrowedKeyCountsInTheSpanAndTheBounds()
    {
        borrow();
        double x1 = 0.0;
        double x2 = 50.0;
        double y1 = 0.0;
        double y2 = 40.0;
        first->logic().selectionBounds(x1, x2, y1, y2);
        QCOMPARE(QPointF(x1, y1), QPointF(20.0, 20.0));
        QCOMPARE(QPointF(x2, y2), QPointF(20.0, 20.0));
        QVERIFY(!isOutside(*first, 20.0));
        QVERIFY(isOutside(*first, 15.0));
    }

    void aBorrowedKeyIsNotEditedThroughTheCurveThatBorrowedIt()
    {
        borrow();
        first->selectionOf("n.a").clear();
        const PointInfo before = *curve->spline.at(1);
        first->undoAll();
        first->editor.getCmdManager()->clear();
        CanvasFunctionBase& canvas = first->logic();
        canvas.scaleSelection(2.0, 2.0);
        canvas.panSelection(1.0, 1.0);
        canvas.flatTangents();
        canvas.setTangentsBroken(true);
        canvas.setSelectedBezier();
        first->typeKey(Qt::Key_Delete);
        const PointInfo* after = curve->spline.at(1);
        QVERIFY(after);
        QCOMPARE(QPointF(after->time, after->value), QPointF(before.time, before.value));
        QCOMPARE(int(after->type), int(before.type));
        QCOMPARE(after->tcb.tension, before.tcb.tension);
        QCOMPARE(after->unifiedTangents, before.unifiedTangents);
        QVERIFY(first->undoSteps().isEmpty());
    }

private:
    /// A third key at (30, 30), made in the first editor and selected in the second.
    void addInFirstAndSelectInSecond(const bool& alone)
    {
        first->paint();
        first->doubleClick(first->pixel(30, 30));
        QCOMPARE(curve->spline.getControlPointsNumber(), 3u);
        const QList<PointInfo*> keys = {curve->spline.at(0), curve->spline.at(1),
                                        curve->spline.at(2)};
        second->selectionOf("m.b").selectPoints(alone ? QList<PointInfo*>{keys[2]} : keys);
    }

    /// Walks along n.a with two curves, so that n.c selects a key of n.a.
    void borrow()
    {
        first->addCurve("n.c", {{5, 30}, {12, 35}});
        first->editor.selectNodes({"n.a", "n.c"});
        first->selectKeys("n.a", {0});
        first->selectKeys("n.c", {1});
        first->typeKey(Qt::Key_Right);
        QCOMPARE(first->selectionOf("n.c").currentPoint, curve->spline.at(1));
    }

    /// Whether a press at a time, far from any key, hits nothing and begins a rubber band, which
    /// then selects nothing.
    static bool isOutside(EditorFixture& fixture, const double& time)
    {
        const QPoint pixel = fixture.pixel(time, 2.0);
        fixture.paint();
        fixture.press(pixel);
        const bool isRubber = fixture.editor.getCurrentMode() == CurveEditor::SELECTING;
        fixture.release(pixel);
        return isRubber;
    }

    std::unique_ptr<EditorFixture> first;  ///< lends the spline
    std::unique_ptr<EditorFixture> second; ///< a second editor of the same spline
    LentCurve* curve = nullptr;
};

QTEST_MAIN(TestSharedKeys)
#include "test_shared_keys.moc"
