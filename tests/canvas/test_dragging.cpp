#include "canvas/StepLabels.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

/// Drags of keys: where they land, what the host hears of it, and undo.
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

    void anInterpolationSetInTheMidstOfADragIsNoStepOfIt()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {30, 20}});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        fixture.press(fixture.pixel(10, 10));
        fixture.moveTo(fixture.pixel(17, 14));
        curve.spline.at(0)->type = zk_spline::stepped; // by the host, past the history
        fixture.moveTo(fixture.pixel(10, 10));
        fixture.release(fixture.pixel(10, 10));
        QVERIFY(fixture.undoSteps().isEmpty());
        QCOMPARE(int(curve.spline.at(0)->type), int(zk_spline::stepped));
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

    void theHostHearsNothingOfACurveThatDoesNotReport()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {30, 20}});
        fixture.logic().findCurve("n.a")->setNotifiesHost(false);
        fixture.paint();
        int heard = 0;
        connect(&fixture.editor, &CurveEditor::curveHasChanged, this,
                [&heard](QString&, QString&) { ++heard; });
        fixture.drag(fixture.pixel(10, 10), fixture.pixel(12, 12));
        QCOMPARE(fixture.undoAll(), (QStringList{changeLabel, moveLabel, selectLabel}));
        QCOMPARE(heard, 0);
    }

    void oneKeyOfEachOfTwoCurvesMovesByTheMouse()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{10, 10}, {20, 20}});
        LentCurve& b = fixture.addCurve("n.b", {{12, 30}, {22, 35}});
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.selectKeys("n.a", {0});
        fixture.selectKeys("n.b", {0});
        fixture.paint();
        // Together they are several keys: neither jumps under the mouse.
        fixture.drag(fixture.pixel(11, 5), fixture.pixel(14, 4));
        QCOMPARE(a.spline.at(0)->time, 13.0);
        QCOMPARE(a.spline.at(0)->value, 9.0);
        QCOMPARE(b.spline.at(0)->time, 15.0);
        QCOMPARE(b.spline.at(0)->value, 29.0);
        QCOMPARE(fixture.undoAll(), QStringList(moveLabel));
    }

    void keysOfAMixedSetAreDragged()
    {
        EditorFixture fixture;
        LentCurve& spline = fixture.addCurve("n.s", {{10, 10}, {20, 20}});
        LentCurve& expression = fixture.addCurve("n.e", {{10, 30}}, "t");
        fixture.editor.selectNodes({"n.e", "n.s"});
        QCOMPARE(fixture.logic().editingType(), 3);
        fixture.paint();
        fixture.drag(fixture.pixel(20, 20), fixture.pixel(22, 21));
        QCOMPARE(spline.spline.at(1)->time, 22.0);
        QCOMPARE(spline.spline.at(1)->value, 21.0);
        // Nothing of a curve that is an expression alone can be hit.
        fixture.drag(fixture.pixel(10, 30), fixture.pixel(12, 31));
        QCOMPARE(expression.spline.at(0)->time, 10.0);
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
